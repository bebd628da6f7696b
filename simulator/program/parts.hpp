#pragma once

#include <functional>
#include <memory>
#include <string>

#include "line/session.hpp"
#include "memory/store.hpp"
#include "program/options.hpp"

namespace impresora {

// What not every build of the program can have. Each of these throws std::exception, with what is
// amiss in words, when the options ask for what cannot be had.

// The fiscal memory's file, or nothing when none is asked for.
std::unique_ptr<Store> OpenMemoryPart(const Options& options);

class PanelPart {
 public:
  virtual ~PanelPart() = default;
  virtual std::string Url() const = 0;
  virtual std::string Warning() const = 0;
};

using Post = std::function<void(std::function<void()>)>;

// What the panel may do with the line.
struct LineCalls {
  std::function<HostLine()> line;
  std::function<bool(bool)> occupy;
};

// The panel, running, or nothing when none is asked for. `post` runs a function on the loop.
std::unique_ptr<PanelPart> OpenPanelPart(const Options& options, Session& session, Post post,
                                         LineCalls calls);

}  // namespace impresora
