#include "exports.hpp"

#include <kestra/kestra.h>
#include <windows.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string>

namespace armour {
namespace {

HMODULE library = nullptr;
int shown = 0;

int32_t KESTRA_CALL Answer(void*, const char*, const char*, int32_t style) {
  ++shown;
  constexpr int32_t kRetryQuestion = 4;
  if (style == kRetryQuestion) return 7;
  return style == 0 ? 1 : 6;
}

int32_t KESTRA_CALL Report(void*, const char*, const char*, const KestraFila*, int32_t) {
  ++shown;
  return 0;
}

void KESTRA_CALL MemoryFull(void*) {
  ++shown;
}

const IMAGE_EXPORT_DIRECTORY& Directory(const char* base) {
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  const auto* const headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  const auto& place = headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT];
  return *reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(base + place.VirtualAddress);
}

}  // namespace

const std::vector<Export>& Exports() {
  static const std::vector<Export> exports = {
      {"EP_Init", ""},
      {"EP_Kill", ""},
      {"EP_AbrirComprobanteFiscal", "t2 t1 t40 t40 t6 t11 t1 t40 t40 t40 t40 t40 i"},
      {"EP_ImprimirItem", "t50 d d d d t22 t22 t22"},
      {"EP_AnularItem", "t50 d d d d t22 t22 t22"},
      {"EP_ImprimirTextoFiscal", "t26"},
      {"EP_ImprimirTextoFiscalInterna", "z"},
      {"EP_CerrarComprobanteFiscal", "t2 t1 o8"},
      {"EP_Cancelar", ""},
      {"EP_DescuentoGeneral", "t80 d"},
      {"EP_RecargoGeneral", "t80 d"},
      {"EP_EspecificarPercepcionGlobal", "t20 d d t1"},
      {"EP_ImprimirPago", "t80 d"},
      {"EP_AjusteRedondeo", "d"},
      {"EP_AbrirComprobanteNoFiscalHomologado", "t2 t1 t40 t40 t6 t11 t1 t40 t40 t40 t40 t40 i"},
      {"EP_CerrarComprobanteNoFiscalHomologado", "t2 t1"},
      {"EP_AbrirComprobanteNoFiscal", ""},
      {"EP_ImprimirTextoNoFiscal", "t120"},
      {"EP_CerrarComprobanteNoFiscal", ""},
      {"EP_ReporteX", ""},
      {"EP_ReporteZ", ""},
      {"EP_ReporteZporNumeros", "i i i"},
      {"EP_ReporteZporFechas", "t6 t6 i"},
      {"EP_AbrirCajonDeDinero", "i"},
      {"EP_CambiarFechaHora", "t6 t6"},
      {"EP_ObtenerFechaHora", "o12"},
      {"EP_SetEncabezado", "t120 i i"},
      {"EP_GetEncabezado", "o120 i"},
      {"EP_CortaPapel", ""},
      {"EP_AvanzaPapel", "i"},
      {"EP_ValoresModelo", "o64"},
      {"EP_Numeracion", "o80"},
      {"EP_AutodetectarModelo", "o14"},
      {"EP_Chequear_Error", ""},
      {"EP_ReimprimirComprobante", ""},
      {"EP_Configuracion", "i"},
      {"EP_ConsultaMemoria", "i"},
      {"EP_Copias", "i"},
      {"EP_ImpuestoInternoFijo", "i"},
      {"EP_ImpuestoInternoPorMonto", "i"},
      {"EP_InformacionRemito", "i"},
      {"EP_Inicializacion", "i"},
      {"EP_Memoria", "i"},
      {"EP_DescuentoUltimoItem", "i i i"},
      {"EP_ImprimirItemEnRemito", "i i i"},
      {"EP_DatosCliente", "i i i i i"},
      {"DllRegisterServer", ""},
      {"DllUnregisterServer", ""},
      {"DllGetClassObject", "g g o8"},
      {"DllCanUnloadNow", ""},
      {"Kestra_DefinirOperador", "k"},
  };
  return exports;
}

const Export& Find(std::string_view name) {
  for (const auto& row : Exports()) {
    if (row.name == name) return row;
  }
  std::abort();
}

std::vector<Parameter> ParametersOf(const Export& exported) {
  std::vector<Parameter> parameters;
  for (const char letter : exported.parameters) {
    if (letter == ' ') continue;
    if (letter >= '0' && letter <= '9') {
      auto& size = parameters.back().size;
      size = 10 * size + static_cast<std::size_t>(letter - '0');
    } else {
      parameters.push_back({letter, 0});
    }
  }
  return parameters;
}

std::vector<std::string_view> NamesInFile() {
  const auto* const base = reinterpret_cast<const char*>(library);
  const auto& directory = Directory(base);
  const auto* const names = reinterpret_cast<const DWORD*>(base + directory.AddressOfNames);
  std::vector<std::string_view> result;
  for (DWORD i = 0; i < directory.NumberOfNames; ++i) result.emplace_back(base + names[i]);
  return result;
}

void LoadLibraryUnderTest() {
  library = LoadLibraryW(L"Kestra.dll");
  if (library != nullptr) return;
  std::printf("Kestra.dll cannot be loaded: error %lu\n", GetLastError());
  std::exit(EXIT_FAILURE);
}

std::uintptr_t AddressOf(std::string_view name) {
  const auto found = GetProcAddress(library, std::string(name).c_str());
  if (found == nullptr) {
    Fail(name, "is not exported");
    std::exit(EXIT_FAILURE);
  }
  return reinterpret_cast<std::uintptr_t>(found);
}

Words& Words::Integer(std::int32_t value) {
  words_.push_back(static_cast<std::uint32_t>(value));
  return *this;
}

// The bytes as they are: no unit looks at them on the way.
Words& Words::Number(std::uint64_t bits) {
  std::uintptr_t halves[sizeof bits / sizeof(std::uintptr_t)];
  std::memcpy(halves, &bits, sizeof bits);
  words_.insert(words_.end(), std::begin(halves), std::end(halves));
  return *this;
}

Words& Words::Address(const void* value) {
  words_.push_back(reinterpret_cast<std::uintptr_t>(value));
  return *this;
}

Target Words::For(std::string_view name) const {
  return {name, AddressOf(name), words_};
}

void TakeTheOperatorsPlace() {
  static const KestraOperador record = {sizeof record, nullptr, Answer, Report, MemoryFull};
  CallIntact(Words().Address(&record).For("Kestra_DefinirOperador"), Habits().front());
}

int Shown() {
  return shown;
}

}  // namespace armour
