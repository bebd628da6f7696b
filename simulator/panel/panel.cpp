#include "panel/panel.hpp"

#include <charconv>
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
        api_(host.session, history_, feed_, loop_, std::move(host.power_cycle)) {
    const auto handle = [this](const httplib::Request& request, httplib::Response& response) {
      api_.Handle(request, response);
    };
    server_.Get(".*", handle).Post(".*", handle).Delete(".*", handle);
    server_.Bind(settings.host, settings.port);
    host.session.Attach(history_);
    server_.Start();
  }

  // First nobody waits any longer, then nobody is served.
  ~Parts() {
    loop_.Close();
    feed_.Close();
    server_.Stop();
    session_.Detach(history_);
  }

  Parts(const Parts&) = delete;
  Parts& operator=(const Parts&) = delete;

  const OwnAddress& Address() const { return server_.Own(); }

 private:
  LoopCalls loop_;
  Feed feed_;
  History history_;
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

bool ReadPanelAddress(const std::string& text, PanelSettings& settings) {
  const std::size_t colon = text.rfind(':');
  const bool has_host = colon != std::string::npos && colon > 0;
  std::string host = has_host ? text.substr(0, colon) : settings.host;
  const bool bracketed = host.size() > 2 && host.front() == '[' && host.back() == ']';
  if (bracketed) host = host.substr(1, host.size() - 2);
  if (!bracketed && host.find(':') != std::string::npos) return false;
  if (host.find_first_of(" \t/[]@") != std::string::npos) return false;
  const char* const first = text.data() + (colon == std::string::npos ? 0 : colon + 1);
  const char* const end = text.data() + text.size();
  int port = 0;
  const auto read = std::from_chars(first, end, port);
  if (read.ec != std::errc() || read.ptr != end || port < 0 || port > 65'535) return false;
  settings = {host, port};
  return true;
}

}  // namespace impresora
