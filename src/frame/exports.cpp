// The exported operations: each hands its arguments to the routine of its name.

#include <cstdint>

#include "device/operations.hpp"
#include "documents/operations.hpp"
#include "frame/export_guard.hpp"
#include "frame/startup.hpp"
#include "kestra/kestra.h"
#include "operation/host_buffer.hpp"
#include "operation/operation.hpp"
#include "platform/seam/platform.hpp"

using kestra::Export;
using kestra::kFailure;
using kestra::kSuccess;
using kestra::Library;

int32_t KESTRA_CALL EP_Init() {
  return Export(__func__, 0, [](Library& library) { return kestra::Init(library); });
}

int32_t KESTRA_CALL EP_Kill() {
  return Export(__func__, 0, [](Library& library) {
    kestra::Kill(library);
    return 0;
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteFiscal(
    const char* tipo, const char* letra, const char* nombre1, const char* nombre2,
    const char* documento_tipo, const char* documento_numero, const char* responsabilidad_iva,
    const char* domicilio1, const char* domicilio2, const char* domicilio3, const char* linea4,
    const char* linea5, int32_t copias) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::AbrirComprobanteFiscal(
        library, {tipo, letra, nombre1, nombre2, documento_tipo, documento_numero,
                  responsabilidad_iva, domicilio1, domicilio2, domicilio3, linea4, linea5, copias});
  });
}

int32_t KESTRA_CALL EP_ImprimirItem(const char* descripcion, double cantidad, double precio,
                                    double iva, double impuestos_internos, const char* extra1,
                                    const char* extra2, const char* extra3) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::ImprimirItem(
        library, {descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3});
  });
}

int32_t KESTRA_CALL EP_AnularItem(const char* descripcion, double cantidad, double precio,
                                  double iva, double impuestos_internos, const char* extra1,
                                  const char* extra2, const char* extra3) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::AnularItem(
        library, {descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3});
  });
}

int32_t KESTRA_CALL EP_ImprimirTextoFiscal(const char* texto) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::ImprimirTextoFiscal(library, texto); });
}

int32_t KESTRA_CALL EP_ImprimirTextoFiscalInterna(const char* texto) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::ImprimirTextoFiscalInterna(library,
                                              kestra::ReadTerminatedText(library.texts, texto));
  });
}

int32_t KESTRA_CALL EP_CerrarComprobanteFiscal(const char* tipo, const char* letra, char* numero) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::CerrarComprobanteFiscal(library, tipo, letra, numero);
  });
}

int32_t KESTRA_CALL EP_Cancelar() {
  return Export(__func__, kFailure, [](Library& library) { return kestra::Cancelar(library); });
}

int32_t KESTRA_CALL EP_DescuentoGeneral(const char* descripcion, double monto) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::DescuentoGeneral(library, descripcion, monto);
  });
}

int32_t KESTRA_CALL EP_RecargoGeneral(const char* descripcion, double monto) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::RecargoGeneral(library, descripcion, monto);
  });
}

int32_t KESTRA_CALL EP_EspecificarPercepcionGlobal(const char* descripcion, double monto,
                                                   double iva, const char* calificador) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::EspecificarPercepcionGlobal(library, descripcion, monto, iva, calificador);
  });
}

int32_t KESTRA_CALL EP_ImprimirPago(const char* descripcion, double monto) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::ImprimirPago(library, descripcion, monto);
  });
}

// Kept as is: hosts are told of success whatever became of the adjustment.
int32_t KESTRA_CALL EP_AjusteRedondeo(double total) {
  return Export(__func__, kSuccess, [=](Library& library) {
    kestra::AjusteRedondeo(library, total);
    return kSuccess;
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscalHomologado(
    const char* tipo, const char* marca1, const char* linea1, const char* linea2,
    const char* documento_tipo, const char* documento_numero, const char* marca2,
    const char* domicilio, const char* linea4, const char* linea5, const char* linea6,
    const char* linea7, int32_t cantidad) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::AbrirComprobanteNoFiscalHomologado(
        library, {tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio,
                  linea4, linea5, linea6, linea7, cantidad});
  });
}

int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscalHomologado(const char* tipo, const char* marca) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::CerrarComprobanteNoFiscalHomologado(library, tipo, marca);
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscal() {
  return Export(__func__, kFailure,
                [](Library& library) { return kestra::AbrirComprobanteNoFiscal(library); });
}

int32_t KESTRA_CALL EP_ImprimirTextoNoFiscal(const char* texto) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::ImprimirTextoNoFiscal(library, texto); });
}

int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscal() {
  return Export(__func__, kFailure,
                [](Library& library) { return kestra::CerrarComprobanteNoFiscal(library); });
}

int32_t KESTRA_CALL EP_ReporteX() {
  return Export(__func__, kFailure, [](Library& library) { return kestra::ReporteX(library); });
}

int32_t KESTRA_CALL EP_ReporteZ() {
  return Export(__func__, kFailure, [](Library& library) { return kestra::ReporteZ(library); });
}

int32_t KESTRA_CALL EP_ReporteZporNumeros(int32_t primero, int32_t ultimo, int32_t tercero) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::ReporteZporNumeros(library, primero, ultimo, tercero);
  });
}

int32_t KESTRA_CALL EP_ReporteZporFechas(const char* desde, const char* hasta, int32_t tercero) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::ReporteZporFechas(library, desde, hasta, tercero);
  });
}

int32_t KESTRA_CALL EP_AbrirCajonDeDinero(int32_t cajon) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::AbrirCajonDeDinero(library, cajon); });
}

int32_t KESTRA_CALL EP_CambiarFechaHora(const char* fecha, const char* hora) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::CambiarFechaHora(library, fecha, hora); });
}

int32_t KESTRA_CALL EP_ObtenerFechaHora(char* resultado) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::ObtenerFechaHora(library, resultado); });
}

int32_t KESTRA_CALL EP_SetEncabezado(const char* texto, int32_t linea, int32_t atributo) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::SetEncabezado(library, texto, linea, atributo);
  });
}

int32_t KESTRA_CALL EP_GetEncabezado(char* resultado, int32_t linea) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::GetEncabezado(library, resultado, linea); });
}

int32_t KESTRA_CALL EP_CortaPapel() {
  return Export(__func__, kFailure, [](Library& library) { return kestra::CortaPapel(library); });
}

// Kept as is: the count of lines is cut to 16 bits; 65541 feeds five.
int32_t KESTRA_CALL EP_AvanzaPapel(int32_t lineas) {
  return Export(__func__, kFailure, [=](Library& library) {
    return kestra::AvanzaPapel(library, static_cast<std::int16_t>(lineas));
  });
}

int32_t KESTRA_CALL EP_ValoresModelo(char* resultado) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::ValoresModelo(library, resultado); });
}

int32_t KESTRA_CALL EP_Numeracion(char* resultado) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::Numeracion(library, resultado); });
}

int32_t KESTRA_CALL EP_AutodetectarModelo(char* resultado) {
  return Export(__func__, kFailure,
                [=](Library& library) { return kestra::AutodetectarModelo(library, resultado); });
}

int32_t KESTRA_CALL EP_Chequear_Error() {
  return kestra::WithoutFailing(0,
                                [] { return kestra::LastError(kestra::Instance().state).load(); });
}

void KESTRA_CALL Kestra_DefinirOperador(const KestraOperador* operador) {
  kestra::WithoutFailing(0, [=] {
    kestra::DefinirOperador(operador);
    return 0;
  });
}

int32_t KESTRA_CALL Kestra_Textos(int32_t modo) {
  return kestra::InTurn(kestra::kRefused,
                        [=](Library& library) { return kestra::ChooseTexts(library.texts, modo); });
}

// Entry points of the platform's component system.

int32_t KESTRA_CALL DllRegisterServer() {
  return kestra::RegisterComponents();
}

int32_t KESTRA_CALL DllUnregisterServer() {
  return kestra::UnregisterComponents();
}

int32_t KESTRA_CALL DllInstall(int32_t instalar, const void* parte) {
  return kestra::InstallComponents(instalar != 0, parte);
}

int32_t KESTRA_CALL DllGetClassObject(const void* clase, const void* interfaz, void** objeto) {
  return kestra::ComponentFactory(clase, interfaz, objeto);
}

int32_t KESTRA_CALL DllCanUnloadNow() {
  return kestra::WithoutFailing(1, [] {
    const bool in_use = kestra::ComponentsInUse() || kestra::Instance().holds_port.load();
    return in_use ? 1 : 0;
  });
}
