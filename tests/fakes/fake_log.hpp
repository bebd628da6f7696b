#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>

#include "fakes/journal.hpp"
#include "fakes/trouble.hpp"
#include "platform/seam/files.hpp"

namespace kestra {

class FakeLog : public LogFile {
 public:
  FakeLog(Journal& journal, Trouble& trouble) : journal_(journal), trouble_(trouble) {}

  void Append(std::string_view file, std::string_view bytes) override;
  void SetAside(std::string_view file, std::uint64_t limit) override;

  // What is in a file; empty when there is none.
  [[nodiscard]] std::string Text(const std::string& file) const;

  void SetReadOnly(bool read_only) { read_only_ = read_only; }

 private:
  Journal& journal_;
  Trouble& trouble_;
  bool read_only_ = false;
  std::map<std::string, std::string> files_;
};

}  // namespace kestra
