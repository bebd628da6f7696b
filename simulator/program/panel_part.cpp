#include <utility>

#include "panel/panel.hpp"
#include "program/parts.hpp"
#include "program/system.hpp"

namespace impresora {
namespace {

class RunningPanel : public PanelPart {
 public:
  RunningPanel(const TcpAddress& address, PanelHost host)
      : panel_({.host = address.host, .port = address.port, .reuse_port = MayReusePorts()},
               std::move(host)) {}

  std::string Url() const override { return panel_.Url(); }
  std::string Warning() const override { return panel_.Warning(); }

 private:
  Panel panel_;
};

}  // namespace

std::unique_ptr<PanelPart> OpenPanelPart(const Options& options, Session& session, Post post,
                                         LineCalls calls) {
  if (!options.panel) return nullptr;
  PanelHost host{.session = session,
                 .post = std::move(post),
                 .power_cycle = [&session] { session.PowerCycle(); },
                 .line = std::move(calls.line),
                 .occupy = std::move(calls.occupy)};
  return std::make_unique<RunningPanel>(*options.panel, std::move(host));
}

}  // namespace impresora
