#include "protocol/exchange.hpp"

#include <algorithm>
#include <cmath>
#include <exception>
#include <string>
#include <string_view>

#include "fields/ansi.hpp"
#include "frame/command_log.hpp"
#include "frame/library.hpp"
#include "protocol/answer_check.hpp"
#include "protocol/control_bytes.hpp"
#include "protocol/packet.hpp"

namespace kestra {
namespace {

// An attempt that has met this many answers of other frames (counted from 1) is given up.
constexpr int kDemasiadasAjenas = 10;
// The printer's patience with silence, in seconds.
constexpr double kEspera = 5.0;

constexpr std::string_view kErrorDeComunicacion =
    "\x02"
    "0\x1C"
    "0\x1C"
    "0\x1C"
    "ERROR DE COMUNICACION\x03";

// What became of one frame.
enum class Desenlace { kPropia, kAjena, kVencida };

// One call of Enviar.
class Intercambio {
 public:
  explicit Intercambio(Biblioteca& k) : k_(k), comando_(k.estado.ComandoActual) {}
  Intercambio(const Intercambio&) = delete;
  Intercambio& operator=(const Intercambio&) = delete;
  ~Intercambio() { Cerrar(); }

  bool Ejecutar();
  void Cerrar() noexcept;

  // What was being done, for the log of a failure.
  [[nodiscard]] std::string_view Linea() const { return linea_; }

 private:
  enum class Paso { kOtraVez, kAceptado, kFallido };

  SerialPort& Puerto();
  void AbrirPuerto();
  Paso Intentar();
  void Numerar();
  void MandarTrama();
  Desenlace Esperar();
  void AtenderOcupado();
  bool LeerLlegado();
  bool Reconocer();
  void FijarVencimiento();
  Paso DescartarAjenas();
  Paso PreguntarReintento();
  Paso Juzgar();

  Biblioteca& k_;
  std::string comando_;
  std::string encabezado_;  // what the answer must begin with
  double vencimiento_ = 0;  // deadline: seconds since midnight, whole
  std::size_t vistos_ = 0;  // waiting bytes already looked at for "busy"
  int ajenas_ = 1;          // answers of other frames met by this frame, from 1
  std::string_view linea_;
};

SerialPort& Intercambio::Puerto() {
  if (k_.estado.Puerto == nullptr) throw SinObjeto();
  return *k_.estado.Puerto;
}

bool Intercambio::Ejecutar() {
  AbrirPuerto();
  auto paso = Paso::kOtraVez;
  while (paso == Paso::kOtraVez) paso = Intentar();
  linea_ = "cerrar";
  if (Puerto().PortOpen()) Puerto().PortOpen(false);
  return paso == Paso::kAceptado;
}

void Intercambio::AbrirPuerto() {
  linea_ = "abrir";
  if (Puerto().PortOpen()) Puerto().PortOpen(false);
  Puerto().PortOpen(true);
}

void Intercambio::Cerrar() noexcept {
  try {
    if (k_.estado.Puerto != nullptr && k_.estado.Puerto->PortOpen()) {
      k_.estado.Puerto->PortOpen(false);
    }
  } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): one is told already
  }
}

Intercambio::Paso Intercambio::Intentar() {
  linea_ = "demorar";
  if (k_.estado.DelayComandos > 0) k_.platform.GetClock().Sleep(k_.estado.DelayComandos);
  Numerar();
  MandarTrama();
  const auto desenlace = Esperar();
  EscribirLog(k_, " - Respuesta : " + k_.estado.RespuestaActual);
  switch (desenlace) {
    case Desenlace::kAjena:
      return DescartarAjenas();
    case Desenlace::kVencida:
      return PreguntarReintento();
    case Desenlace::kPropia:
      break;
  }
  return Juzgar();
}

void Intercambio::Numerar() {
  linea_ = "numerar";
  auto& estado = k_.estado;
  const auto segundos = static_cast<int>(k_.platform.GetClock().TimeOfDay()) % 60;
  const auto secuencia =
      SiguienteSecuencia({estado.NroSecuencia, estado.NroSecuenciaAnterior}, segundos);
  estado.NroSecuencia = secuencia.actual;
  estado.NroSecuenciaAnterior = secuencia.anterior;
  estado.ComandoActual = Enmarcar(secuencia.actual, comando_);
  encabezado_ = std::string(1, static_cast<char>(secuencia.actual)).append(comando_, 0, 1);
}

void Intercambio::MandarTrama() {
  linea_ = "mandar";
  auto& estado = k_.estado;
  // The frame is taken before the question: an operator may keep the box open for long.
  const auto trama = estado.ComandoActual;
  if (estado.MostrarComandos != 0) {
    k_.platform.GetOperator().Message("Comando a enviar:" + trama, "", kBoxOk);
  }
  EscribirLog(k_, " - Output : " + trama);
  // What came before the frame is no answer to it. It goes before the write: a quick printer's
  // answer must not be lost to it.
  estado.Respuestas = trama;  // what is summed
  Puerto().DiscardInput();
  Puerto().Output(trama + SumaDeControl(estado.Respuestas));
  ajenas_ = 1;
  vistos_ = 0;
  estado.RespuestaActual.clear();
  FijarVencimiento();
}

void Intercambio::FijarVencimiento() {
  // Whole seconds, halves to the even one: the wait lies between 4.5 and 5.5 seconds.
  // Kept as is: past midnight the time of day never reaches it, and the printer is waited for.
  const double cuando = k_.platform.GetClock().TimeOfDay() + kEspera;
  const double entero = std::floor(cuando);
  const double resto = cuando - entero;
  const bool sube = resto > 0.5 || (resto == 0.5 && std::fmod(entero, 2.0) != 0.0);
  vencimiento_ = sube ? entero + 1 : entero;
}

Desenlace Intercambio::Esperar() {
  linea_ = "esperar";
  while (k_.platform.GetClock().TimeOfDay() < vencimiento_) {
    const bool hay_algo = LeerLlegado();
    while (hay_algo && LargoDeRespuesta(k_.estado.RespuestaActual) != 0) {
      if (Reconocer()) return Desenlace::kPropia;
      if (ajenas_ == kDemasiadasAjenas) return Desenlace::kAjena;
    }
  }
  return ajenas_ > 1 ? Desenlace::kAjena : Desenlace::kVencida;
}

// Takes what has arrived once it can matter: four bytes, or those that an end byte still lacks.
bool Intercambio::LeerLlegado() {
  auto& recibido = k_.estado.RespuestaActual;
  const auto esperando = Puerto().InBufferCount();
  AtenderOcupado();
  const auto fin = recibido.find(kEtx);
  const auto hacen_falta =
      fin == std::string::npos ? kChecksumDigits : kChecksumDigits - (recibido.size() - fin - 1);
  if (esperando < hacen_falta) return false;
  recibido += Puerto().Input();
  vistos_ = 0;
  return true;
}

// Each busy byte that arrives buys the printer another five seconds.
void Intercambio::AtenderOcupado() {
  const auto nuevos = Puerto().Waiting().substr(std::min(vistos_, Puerto().Waiting().size()));
  if (nuevos.find(kDc2) != std::string_view::npos) FijarVencimiento();
  vistos_ = Puerto().Waiting().size();
}

// Acknowledges the answer at the front of what was received. True: it is the answer to this frame.
// One to another frame is counted and dropped; the right one may stand behind it.
bool Intercambio::Reconocer() {
  auto& recibido = k_.estado.RespuestaActual;
  const auto largo = LargoDeRespuesta(recibido);
  const bool propia =
      EncabezadoDeRespuesta(std::string_view(recibido).substr(0, largo)) == encabezado_;
  Puerto().Output(std::string_view(&kAck, 1));
  if (propia) return true;
  ++ajenas_;
  recibido.erase(0, largo);
  return false;
}

Intercambio::Paso Intercambio::DescartarAjenas() {
  linea_ = "descartar";
  Puerto().Output(std::string_view(&kAck, 1));
  Puerto().DiscardInput();
  return ajenas_ == kDemasiadasAjenas ? Paso::kFallido : Paso::kOtraVez;
}

Intercambio::Paso Intercambio::PreguntarReintento() {
  linea_ = "preguntar";
  k_.estado.RespuestaActual = kErrorDeComunicacion;
  const auto respuesta = k_.platform.GetOperator().Message(
      "Error de Comunicación con la fiscal. Reintentar?"_ansi, "Error !", kBoxYesNo);
  return respuesta == kAnswerYes ? Paso::kOtraVez : Paso::kFallido;
}

Intercambio::Paso Intercambio::Juzgar() {
  linea_ = "juzgar";
  auto& estado = k_.estado;
  estado.RespuestaActual = RecortarRespuesta(estado.RespuestaActual);
  estado.Reintentar = kFalso;
  const bool ok = ListarRespuestas(k_);
  if (estado.MostrarComandos != 0) {
    std::string texto = "Comando enviado:" + estado.ComandoActual;
    texto.append(1, kCr).append(" /OK: ").append(ok ? "True" : "False");
    k_.platform.GetOperator().Message(texto, "", kBoxOk);
  }
  if (estado.Reintentar != kFalso) return Paso::kOtraVez;
  return ok ? Paso::kAceptado : Paso::kFallido;
}

}  // namespace

std::int32_t Enviar(Biblioteca& k) {
  Intercambio intercambio(k);
  try {
    return intercambio.Ejecutar() ? 0 : 1;
  } catch (const std::exception& error) {
    RegistrarFalla(k, AFalla(error), "Enviar", intercambio.Linea());
    intercambio.Cerrar();
    k.platform.GetOperator().Message("Error en el comando Enviar", "", kBoxOk);
    return 1;
  }
}

}  // namespace kestra
