#pragma once

#include <cstdint>
#include <string_view>

namespace impresora {

// Marks the file as a fiscal memory, and the shape of its tables.
inline constexpr std::int64_t kApplicationId = 0x46495343;
inline constexpr std::int64_t kSchemaVersion = 2;

// Money is in hundredths; prices, internal taxes per unit and quantities in ten-thousandths; rates in
// hundredths of a percent; moments are seconds of local time since 1970. What the host sent is kept as bytes.
inline constexpr std::string_view kSchema = R"(
CREATE TABLE identidad(clave TEXT PRIMARY KEY, valor TEXT NOT NULL) WITHOUT ROWID;

CREATE TABLE estado(
  id INTEGER PRIMARY KEY CHECK (id = 1),
  desfase_reloj INTEGER NOT NULL,
  cierres_restantes INTEGER NOT NULL,
  terminados INTEGER NOT NULL,
  no_fiscal_abierto INTEGER NOT NULL,
  jornada_abierta INTEGER,
  sin_importe INTEGER NOT NULL,
  cancelados INTEGER NOT NULL,
  no_fiscales INTEGER NOT NULL);

CREATE TABLE numeracion(
  serie INTEGER NOT NULL, letra TEXT NOT NULL, ultimo INTEGER NOT NULL,
  PRIMARY KEY (serie, letra)) WITHOUT ROWID;

CREATE TABLE encabezados(linea INTEGER PRIMARY KEY, texto BLOB NOT NULL);

CREATE TABLE cierres(
  numero INTEGER PRIMARY KEY, momento INTEGER NOT NULL, jornada_abierta INTEGER,
  sin_importe INTEGER NOT NULL, cancelados INTEGER NOT NULL, no_fiscales INTEGER NOT NULL);

-- Of each closing; closing 0 is the day that is still open.
CREATE TABLE movimientos(
  cierre INTEGER NOT NULL, operacion TEXT NOT NULL, comprobantes INTEGER NOT NULL,
  total INTEGER NOT NULL, internos INTEGER NOT NULL, percepciones INTEGER NOT NULL,
  PRIMARY KEY (cierre, operacion)) WITHOUT ROWID;
CREATE TABLE tasas(
  cierre INTEGER NOT NULL, operacion TEXT NOT NULL, tasa INTEGER NOT NULL,
  neto INTEGER NOT NULL, iva INTEGER NOT NULL,
  PRIMARY KEY (cierre, operacion, tasa)) WITHOUT ROWID;

CREATE TABLE comprobantes(
  ordinal INTEGER PRIMARY KEY, clase TEXT NOT NULL, tipo TEXT NOT NULL, codigo TEXT NOT NULL,
  letra TEXT NOT NULL, numero INTEGER NOT NULL, fecha TEXT NOT NULL, momento INTEGER NOT NULL,
  total INTEGER NOT NULL, iva INTEGER NOT NULL, cuit BLOB NOT NULL, cancelado INTEGER NOT NULL);
CREATE UNIQUE INDEX comprobantes_numero ON comprobantes(codigo, letra, numero)
  WHERE clase = 'fiscal';

CREATE TABLE documento(
  id INTEGER PRIMARY KEY CHECK (id = 1),
  codigo TEXT NOT NULL, letra TEXT NOT NULL, numero INTEGER NOT NULL,
  mayor_total INTEGER NOT NULL,
  nombre BLOB NOT NULL, nombre_2 BLOB NOT NULL, clase_id BLOB NOT NULL, numero_id BLOB NOT NULL,
  iva TEXT NOT NULL,
  internos INTEGER NOT NULL, percepciones INTEGER NOT NULL, unidades INTEGER NOT NULL,
  renglones INTEGER NOT NULL, pagando INTEGER NOT NULL, entre_hojas INTEGER NOT NULL,
  renglones_hoja INTEGER NOT NULL, copias INTEGER NOT NULL);
CREATE TABLE documento_domicilio(n INTEGER PRIMARY KEY, texto BLOB NOT NULL);
CREATE TABLE documento_tasas(
  n INTEGER PRIMARY KEY, tasa INTEGER NOT NULL, importe INTEGER NOT NULL);
CREATE TABLE documento_items(
  n INTEGER PRIMARY KEY, descripcion BLOB NOT NULL, precio INTEGER NOT NULL,
  tasa INTEGER NOT NULL, internos_unidad INTEGER NOT NULL,
  cantidad INTEGER NOT NULL, gravado INTEGER NOT NULL, internos INTEGER NOT NULL);
CREATE TABLE documento_pagos(
  n INTEGER PRIMARY KEY, descripcion BLOB NOT NULL, importe INTEGER NOT NULL);
CREATE TABLE documento_papel(
  n INTEGER PRIMARY KEY, texto TEXT NOT NULL, estilo INTEGER NOT NULL);
)";

}  // namespace impresora
