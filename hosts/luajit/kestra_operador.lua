-- Quien contesta en lugar de los cuadros de la biblioteca, como ella lo llama.
local ffi = require("ffi")

local function filas_de(punteros, cantidad)
  local filas = {}
  for lugar = 0, cantidad - 1 do
    local fila = punteros[lugar]
    filas[lugar + 1] = {grupo = fila.grupo, numero = fila.numero, clase = fila.clase, encendida = fila.encendida ~= 0,
                        texto = ffi.string(fila.texto), ayuda = ffi.string(fila.ayuda)}
  end
  return filas
end

local PROPIAS = {
  mensaje = function(operador, _, texto, titulo, estilo)
    return operador.mensaje(ffi.string(texto), ffi.string(titulo), estilo) or 0
  end,
  informe_estados = function(operador, _, impresora, fiscal, filas, cantidad)
    local otra_vez = operador.informe_estados(ffi.string(impresora), ffi.string(fiscal), filas_de(filas, cantidad))
    return otra_vez and 1 or 0
  end,
  memoria_llena = function(operador) operador.memoria_llena() end,
}

-- Lo que falle se muestra, y vale como No o Cerrar: a través de la biblioteca no puede salir.
local function sin_caer(operador, propia)
  return function(...)
    local bien, dado = pcall(propia, operador, ...)
    if bien then return dado end
    io.stderr:write(tostring(dado), "\n")
    return 0
  end
end

-- El registro de la biblioteca; lo que libera sus funciones, cuando ella ya no las use.
local function registro_de(operador)
  local registro = ffi.new("KestraOperador", {tamano = ffi.sizeof("KestraOperador")})
  local suyas = {}
  for nombre, propia in pairs(PROPIAS) do
    if operador[nombre] then
      suyas[nombre] = ffi.cast(ffi.typeof(registro[nombre]), sin_caer(operador, propia))
      registro[nombre] = suyas[nombre]
    end
  end
  return registro, function()
    for _, funcion in pairs(suyas) do funcion:free() end
  end
end

return {registro_de = registro_de}
