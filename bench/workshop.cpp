#include "workshop.hpp"

#include <kestra/kestra.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <system_error>

#include "printer.hpp"

namespace kestra::bench {
namespace {

constexpr const char* kSettingsFile = "Fiscal.ini";
constexpr const char* kSettings = R"([Epson_Fiscal]
ImpresoraPuerto=1
ImpresoraConfig=9600
TipoComprobante=TQ
ModeloNombre=TM-T900
TipoIVA=I
CanDecimales=2
CanMaxima=999
LonObsFac=40
LonLinFac=20
LonPagFac=1
LonLinNoF=40
LonLinPag=40
ErrorMostrar=1
MostrarComandos=0
EmiteTIC=1
EmiteTIF=1
EmiteFAC=1
EmiteRTO=1
EmitePAG=1
EmiteCRE=1
EmiteDEB=1
EntCantidad=5
DecCantidad=3
EntPrecio=7
DecPrecio=2
IncluirPuntoPrecio=0
EntDesc=7
DecDesc=2
EntIVA=2
DecIVA=2
EntImpInt=7
DecImpInt=2
EntPercepcion=7
DecPercepcion=2
LonDescripcionT=26
LonTextoFiscalT=26
LonEncabezadoT=40
LonTextoNoFiscalT=40
LonDatosClienteT=40
LonDescripcionF=26
LonTextoFiscalF=26
LonEncabezadoF=40
LonTextoNoFiscalF=40
LonDatosClienteF=40
Transporte=0
AjusteRedondeo=0
QuitarCaracNoValidos=1
MostrarRespuestas=0
CPI=12
LogComandos=0
UtilizaTransporte=0
DelayComandos=0
)";

// The directory's name where a signal's handler may read it.
std::array<char, 4096> doomed_directory{};

void RemoveAndDie(int signal) {
  ::unlink(kSettingsFile);
  ::rmdir(doomed_directory.data());
  ::_exit(128 + signal);
}

// The current directory from here on; removed at the end, also when the user stops the bench.
class Directory {
 public:
  Directory() {
    const std::string pattern = std::filesystem::temp_directory_path() / "kestra-bench-XXXXXX";
    if (pattern.copy(doomed_directory.data(), doomed_directory.size() - 1) != pattern.size() ||
        ::mkdtemp(doomed_directory.data()) == nullptr) {
      throw std::system_error(errno, std::generic_category(), pattern);
    }
    std::filesystem::current_path(doomed_directory.data());
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) std::signal(signal, RemoveAndDie);
  }
  Directory(const Directory&) = delete;
  Directory& operator=(const Directory&) = delete;
  ~Directory() {
    std::error_code ignored;
    std::filesystem::current_path("/", ignored);
    std::filesystem::remove_all(doomed_directory.data(), ignored);
  }
};

void EnterDirectory() {
  static const Directory directory;
}

void WriteSettings(const std::string& device, const std::string& more_keys) {
  std::ofstream file(kSettingsFile);
  file << kSettings << "ImpresoraDispositivo=" << device << '\n' << more_keys;
  if (!file.flush()) throw std::runtime_error("Fiscal.ini could not be written");
}

std::int32_t Decline(void* /*context*/, const char* text, const char* /*title*/,
                     std::int32_t style) {
  constexpr std::int32_t kOk = 1;
  constexpr std::int32_t kNo = 7;
  std::fprintf(stderr, "The library says: %s\n", text);
  return style == 0 ? kOk : kNo;
}

std::int32_t CloseReport(void* /*context*/, const char* printer, const char* fiscal,
                         const KestraFila* /*rows*/, std::int32_t /*count*/) {
  std::fprintf(stderr, "The library reports the states %s and %s\n", printer, fiscal);
  return 0;
}

}  // namespace

Workshop::Workshop(const Printer& printer, const std::string& more_keys) {
  EnterDirectory();
  WriteSettings(printer.Path(), more_keys);
  const KestraOperador nobody = {.tamano = sizeof(KestraOperador),
                                 .contexto = nullptr,
                                 .mensaje = Decline,
                                 .informe_estados = CloseReport,
                                 .memoria_llena = nullptr};
  Kestra_DefinirOperador(&nobody);
  if (EP_Init() != 1) throw std::runtime_error("the library did not start");
}

Workshop::~Workshop() {
  EP_Kill();
}

}  // namespace kestra::bench
