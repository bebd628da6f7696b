#include "panel/panel.hpp"

#include <utility>

#include "panel/api.hpp"
#include "panel/web_server.hpp"

namespace impresora {

// In the order in which each needs the ones before it.
class Panel::Parts {
 public:
  Parts(const PanelSettings& settings, PanelHost host)
      : loop_(std::move(host.post)),
        history_(feed_),
        session_(host.session),
        api_(std::move(host), history_, recording_, feed_, loop_),
        server_({settings.host, settings.port, settings.reuse_port},
                [this](const Request& request, Response& response) {
                  api_.Handle(request, response);
                }) {
    server_.Start();
    session_.Attach(history_);
    session_.Attach(recording_);
  }

  // First nobody waits any longer, then nobody is served.
  ~Parts() {
    loop_.Close();
    feed_.Close();
    server_.Stop();
    session_.Detach(recording_);
    session_.Detach(history_);
  }

  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  const OwnAddress& Address() const { return server_.Own(); }

 private:
  LoopCalls loop_;
  Feed feed_;
  History history_;
  KeptRecording recording_;
  Session& session_;
  Api api_;
  WebServer server_;
};

Panel::Panel(const PanelSettings& settings, PanelHost host)
    : parts_(std::make_unique<Parts>(settings, std::move(host))) {}

Panel::~Panel() = default;

std::string Panel::Url() const {
  return parts_->Address().Url();
}

std::string Panel::Warning() const {
  if (parts_->Address().IsLoopback()) return {};
  return "el panel queda a la vista de la red: cualquiera que llegue a " + Url() +
         " puede manejar la impresora";
}

}  // namespace impresora
