#include "http/api.hpp"

namespace puerta {

std::span<const Route> Api::Routes() {
  static constexpr std::array<Route, 27> kRoutes{{
      {"GET", "/v1/impresoras", kRead, &Api::Printers},
      {"GET", "/v1/impresoras/{}", kRead, &Api::OnePrinter},
      {"GET", "/v1/impresoras/{}/estado", kRead, &Api::PrinterState},
      {"GET", "/v1/impresoras/{}/numeracion", kRead, &Api::Numbers},
      {"GET", "/v1/impresoras/{}/reloj", kRead, &Api::ReadClock},
      {"GET", "/v1/impresoras/{}/trabajos", kRead, &Api::Jobs},
      {"PUT", "/v1/impresoras/{}/reloj", kClose, &Api::Print, "reloj"},
      {"PUT", "/v1/impresoras/{}/encabezados", kClose, &Api::Print, "encabezados"},
      {"POST", "/v1/impresoras/{}/comprobantes", kSell, &Api::Print, "comprobante"},
      {"POST", "/v1/impresoras/{}/informes", kSell, &Api::Print, "informe"},
      {"POST", "/v1/impresoras/{}/no-fiscales", kSell, &Api::Print, "no_fiscal"},
      {"POST", "/v1/impresoras/{}/cajon", kSell, &Api::Print, "cajon"},
      {"POST", "/v1/impresoras/{}/cancelacion", kClose, &Api::Print, "cancelar"},
      {"GET", "/v1/trabajos/{}", kRead, &Api::OneJob},
      {"DELETE", "/v1/trabajos/{}", kSell, &Api::CancelJob},
      {"GET", "/v1/eventos", kRead, &Api::Events},
      {"GET", "/metrics", kRead, &Api::Metrics},
      {"GET", "/salud", kNobody, &Api::Health},
      {"GET", "/v1/openapi.json", kNobody, &Api::ShowPage},
      {"GET", "/", kNobody, &Api::ShowPage},
      {"GET", "/estado.js", kNobody, &Api::ShowPage},
      {"GET", "/estado.css", kNobody, &Api::ShowPage},
      {"GET", "/documentacion", kNobody, &Api::ShowPage},
      {"GET", "/problemas/{}", kNobody, &Api::ShowPage},
      {"GET", "/caja", kNobody, &Api::ShowPage},
      {"GET", "/caja/", kNobody, &Api::ShowPage},
      {"GET", "/caja/{}", kNobody, &Api::ShowPage},
  }};
  return kRoutes;
}

// A closing of the day is not for whoever sells.
Right Api::RightFor(const Route& route, const Json& body) {
  const bool closes = route.operation == "informe" && TextOf(body, "tipo") == "z";
  return closes ? kClose : route.right;
}

}  // namespace puerta
