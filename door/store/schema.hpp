#pragma once

#include <cstdint>
#include <string_view>

namespace puerta {

// Marks the file as a door's memory, and the shape of its tables.
inline constexpr std::int64_t kApplicationId = 0x50554552;
inline constexpr std::int64_t kSchemaVersion = 1;

// Moments are milliseconds since 1970, UTC; states are State's numbers. terminado is
// 0 while a job is not over: the first index holds those alone, and stays small however many the years.
inline constexpr std::string_view kSchema = R"(
CREATE TABLE trabajos(
  numero INTEGER PRIMARY KEY AUTOINCREMENT,
  caja TEXT NOT NULL, clave TEXT NOT NULL,
  impresora TEXT NOT NULL, operacion TEXT NOT NULL, resumen TEXT NOT NULL, cuerpo TEXT NOT NULL,
  estado INTEGER NOT NULL, antes TEXT NOT NULL DEFAULT '', respuesta TEXT NOT NULL DEFAULT '',
  aceptado INTEGER NOT NULL, comenzado INTEGER NOT NULL DEFAULT 0,
  terminado INTEGER NOT NULL DEFAULT 0);
CREATE INDEX trabajos_pendientes ON trabajos(impresora, estado) WHERE terminado = 0;
CREATE UNIQUE INDEX trabajos_clave ON trabajos(caja, clave);
CREATE INDEX trabajos_impresora ON trabajos(impresora);
CREATE INDEX trabajos_viejos ON trabajos(terminado) WHERE cuerpo <> '' AND terminado > 0;

-- secuencia: of what is published of that printer, 1 and up without a gap; 0 for what stays here.
-- clave: what makes a repetition harmless, never the same twice, not even after an old copy came back.
CREATE TABLE eventos(
  id INTEGER PRIMARY KEY AUTOINCREMENT,
  impresora TEXT NOT NULL, clase TEXT NOT NULL, momento INTEGER NOT NULL, datos TEXT NOT NULL,
  secuencia INTEGER NOT NULL, clave TEXT NOT NULL);

CREATE TABLE secuencias(impresora TEXT PRIMARY KEY, ultima INTEGER NOT NULL) WITHOUT ROWID;

-- What the broker has not acknowledged.
CREATE TABLE salida(
  impresora TEXT NOT NULL, evento INTEGER NOT NULL REFERENCES eventos(id),
  PRIMARY KEY (impresora, evento)) WITHOUT ROWID;
)";

}  // namespace puerta
