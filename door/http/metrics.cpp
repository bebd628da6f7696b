#include "http/metrics.hpp"

#include <array>
#include <cstdint>
#include <string_view>

namespace puerta {
namespace {

struct Count {
  std::string_view name, help;
  std::int64_t Counters::*value;
};

constexpr std::array<Count, 6> kCounts{{
    {"aceptados", "Pedidos aceptados", &Counters::taken},
    {"repetidos", "Pedidos con una clave conocida", &Counters::repeated},
    {"invalidos", "Pedidos que no se pueden imprimir", &Counters::invalid},
    {"otro_cuerpo", "Claves usadas con otro pedido", &Counters::other_body},
    {"cola_llena", "Pedidos rechazados por la cola llena", &Counters::full},
    {"cancelados", "Trabajos sacados de la cola", &Counters::cancelled},
}};

std::string Head(std::string_view name, std::string_view help, std::string_view type) {
  const std::string whole = "kestra_puerta_" + std::string(name);
  return "# HELP " + whole + " " + std::string(help) + "\n# TYPE " + whole + " " +
         std::string(type) + "\n";
}

std::string Line(std::string_view name, const std::string& printer, std::int64_t value) {
  const auto label = printer.empty() ? "" : "{impresora=\"" + printer + "\"}";
  return "kestra_puerta_" + std::string(name) + label + " " + std::to_string(value) + "\n";
}

std::int64_t IsWell(const Printer& printer) {
  const auto connection = TextOf(printer.Show(), "conexion");
  return connection == "lista" || connection == "imprimiendo" ? 1 : 0;
}

struct Gauge {
  std::string_view name, help, type;
  std::int64_t (*value)(const Printer& printer);
};

constexpr std::array<Gauge, 4> kGauges{{
    {"lista", "La impresora contesta", "gauge", IsWell},
    {"en_cola", "Trabajos en la cola", "gauge",
     [](const Printer& printer) { return IntegerOf(printer.Show(), "en_cola"); }},
    {"pendientes", "Trabajos de los que no se sabe", "gauge",
     [](const Printer& printer) { return IntegerOf(printer.Show(), "pendientes"); }},
    {"muertes_total", "Procesos de la impresora que terminaron", "counter",
     [](const Printer& printer) { return printer.Deaths(); }},
}};

}  // namespace

std::string MetricsText(Service& service) {
  std::string text;
  for (const auto& count : kCounts) {
    const auto name = std::string(count.name) + "_total";
    text += Head(name, count.help, "counter") + Line(name, "", service.Count().*count.value);
  }
  for (const auto& gauge : kGauges) {
    text += Head(gauge.name, gauge.help, gauge.type);
    for (const auto& [id, printer] : service.Printers()) {
      text += Line(gauge.name, id, gauge.value(*printer));
    }
  }
  text += Head("sin_publicar", "Sucesos que esperan al broker", "gauge");
  return text + Line("sin_publicar", "", service.Memory().Unpublished());
}

}  // namespace puerta
