// The exported operations: each hands its arguments to the routine of its name.

#include <cstdint>

#include "device/clock.hpp"
#include "device/drawer.hpp"
#include "device/header.hpp"
#include "device/model.hpp"
#include "device/numbering.hpp"
#include "device/paper.hpp"
#include "device/reports.hpp"
#include "documents/discount.hpp"
#include "documents/fiscal_document.hpp"
#include "documents/fiscal_text.hpp"
#include "documents/homologated_document.hpp"
#include "documents/item.hpp"
#include "documents/non_fiscal_document.hpp"
#include "documents/payment.hpp"
#include "documents/perception.hpp"
#include "documents/rounding.hpp"
#include "frame/export_guard.hpp"
#include "frame/host_buffer.hpp"
#include "frame/operation.hpp"
#include "frame/startup.hpp"
#include "kestra/kestra.h"

using kestra::Biblioteca;
using kestra::Exportar;
using kestra::kExito;
using kestra::kFracaso;

int32_t KESTRA_CALL EP_Init() {
  return Exportar(__func__, 0, [](Biblioteca& k) { return kestra::Init(k); });
}

int32_t KESTRA_CALL EP_Kill() {
  return Exportar(__func__, 0, [](Biblioteca& k) {
    kestra::Kill(k);
    return 0;
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteFiscal(
    const char* tipo, const char* letra, const char* nombre1, const char* nombre2,
    const char* documento_tipo, const char* documento_numero, const char* responsabilidad_iva,
    const char* domicilio1, const char* domicilio2, const char* domicilio3, const char* linea4,
    const char* linea5, int32_t copias) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::AbrirComprobanteFiscal(
        k, {tipo, letra, nombre1, nombre2, documento_tipo, documento_numero, responsabilidad_iva,
            domicilio1, domicilio2, domicilio3, linea4, linea5, copias});
  });
}

int32_t KESTRA_CALL EP_ImprimirItem(const char* descripcion, double cantidad, double precio,
                                    double iva, double impuestos_internos, const char* extra1,
                                    const char* extra2, const char* extra3) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::ImprimirItem(
        k, {descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3});
  });
}

int32_t KESTRA_CALL EP_AnularItem(const char* descripcion, double cantidad, double precio,
                                  double iva, double impuestos_internos, const char* extra1,
                                  const char* extra2, const char* extra3) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::AnularItem(
        k, {descripcion, cantidad, precio, iva, impuestos_internos, extra1, extra2, extra3});
  });
}

int32_t KESTRA_CALL EP_ImprimirTextoFiscal(const char* texto) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::ImprimirTextoFiscal(k, texto); });
}

int32_t KESTRA_CALL EP_ImprimirTextoFiscalInterna(const char* texto) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::ImprimirTextoFiscalInterna(k, kestra::LeerTextoTerminado(texto));
  });
}

int32_t KESTRA_CALL EP_CerrarComprobanteFiscal(const char* tipo, const char* letra, char* numero) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::CerrarComprobanteFiscal(k, tipo, letra, numero);
  });
}

int32_t KESTRA_CALL EP_Cancelar() {
  return Exportar(__func__, kFracaso, [](Biblioteca& k) { return kestra::Cancelar(k); });
}

int32_t KESTRA_CALL EP_DescuentoGeneral(const char* descripcion, double monto) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::DescuentoGeneral(k, descripcion, monto); });
}

int32_t KESTRA_CALL EP_RecargoGeneral(const char* descripcion, double monto) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::RecargoGeneral(k, descripcion, monto); });
}

int32_t KESTRA_CALL EP_EspecificarPercepcionGlobal(const char* descripcion, double monto,
                                                   double iva, const char* calificador) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::EspecificarPercepcionGlobal(k, descripcion, monto, iva, calificador);
  });
}

int32_t KESTRA_CALL EP_ImprimirPago(const char* descripcion, double monto) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::ImprimirPago(k, descripcion, monto); });
}

// Kept as is: hosts are told of success whatever became of the adjustment.
int32_t KESTRA_CALL EP_AjusteRedondeo(double total) {
  return Exportar(__func__, kExito, [=](Biblioteca& k) {
    kestra::AjustarRedondeo(k, total);
    return kExito;
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscalHomologado(
    const char* tipo, const char* marca1, const char* linea1, const char* linea2,
    const char* documento_tipo, const char* documento_numero, const char* marca2,
    const char* domicilio, const char* linea4, const char* linea5, const char* linea6,
    const char* linea7, int32_t cantidad) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::AbrirComprobanteNoFiscalHomologado(
        k, {tipo, marca1, linea1, linea2, documento_tipo, documento_numero, marca2, domicilio,
            linea4, linea5, linea6, linea7, cantidad});
  });
}

int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscalHomologado(const char* tipo, const char* marca) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::CerrarComprobanteNoFiscalHomologado(k, tipo, marca);
  });
}

int32_t KESTRA_CALL EP_AbrirComprobanteNoFiscal() {
  return Exportar(__func__, kFracaso,
                  [](Biblioteca& k) { return kestra::AbrirComprobanteNoFiscal(k); });
}

int32_t KESTRA_CALL EP_ImprimirTextoNoFiscal(const char* texto) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::ImprimirTextoNoFiscal(k, texto); });
}

int32_t KESTRA_CALL EP_CerrarComprobanteNoFiscal() {
  return Exportar(__func__, kFracaso,
                  [](Biblioteca& k) { return kestra::CerrarComprobanteNoFiscal(k); });
}

int32_t KESTRA_CALL EP_ReporteX() {
  return Exportar(__func__, kFracaso, [](Biblioteca& k) { return kestra::ReporteX(k); });
}

int32_t KESTRA_CALL EP_ReporteZ() {
  return Exportar(__func__, kFracaso, [](Biblioteca& k) { return kestra::ReporteZ(k); });
}

int32_t KESTRA_CALL EP_ReporteZporNumeros(int32_t primero, int32_t ultimo, int32_t tercero) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::ReporteZporNumeros(k, primero, ultimo, tercero);
  });
}

int32_t KESTRA_CALL EP_ReporteZporFechas(const char* desde, const char* hasta, int32_t tercero) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::ReporteZporFechas(k, desde, hasta, tercero);
  });
}

int32_t KESTRA_CALL EP_AbrirCajonDeDinero(int32_t cajon) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::AbrirCajonDeDinero(k, cajon); });
}

int32_t KESTRA_CALL EP_CambiarFechaHora(const char* fecha, const char* hora) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::CambiarFechaHora(k, fecha, hora); });
}

int32_t KESTRA_CALL EP_ObtenerFechaHora(char* resultado) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::ObtenerFechaHora(k, resultado); });
}

int32_t KESTRA_CALL EP_SetEncabezado(const char* texto, int32_t linea, int32_t atributo) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::SetEncabezado(k, texto, linea, atributo); });
}

int32_t KESTRA_CALL EP_GetEncabezado(char* resultado, int32_t linea) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::GetEncabezado(k, resultado, linea); });
}

int32_t KESTRA_CALL EP_CortaPapel() {
  return Exportar(__func__, kFracaso, [](Biblioteca& k) { return kestra::CortaPapel(k); });
}

int32_t KESTRA_CALL EP_AvanzaPapel(int32_t lineas) {
  return Exportar(__func__, kFracaso, [=](Biblioteca& k) {
    return kestra::AvanzaPapel(k, static_cast<std::int16_t>(lineas));
  });
}

int32_t KESTRA_CALL EP_ValoresModelo(char* resultado) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::ValoresModelo(k, resultado); });
}

int32_t KESTRA_CALL EP_Numeracion(char* resultado) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::Numeracion(k, resultado); });
}

int32_t KESTRA_CALL EP_AutodetectarModelo(char* resultado) {
  return Exportar(__func__, kFracaso,
                  [=](Biblioteca& k) { return kestra::AutodetectarModelo(k, resultado); });
}

int32_t KESTRA_CALL EP_Chequear_Error() {
  return kestra::SinFallar(0, [] { return kestra::Instancia().estado.UltimoError; });
}

void KESTRA_CALL Kestra_DefinirOperador(const KestraOperador* operador) {
  kestra::SinFallar(0, [=] {
    kestra::DefinirOperador(operador);
    return 0;
  });
}
