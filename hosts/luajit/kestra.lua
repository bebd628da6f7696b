-- Kestra desde LuaJIT: un método por función, con textos de Lua en UTF-8, y un error cuando algo falla.
--
--   local kestra = require("kestra")
--   local impresora = kestra.Impresora()
--   impresora:abrir_comprobante_fiscal("FC", "B", {responsabilidad_iva = "F"})
local ffi = require("ffi")
local k = require("declaraciones")
local kestra_operador = require("kestra_operador")

local UTF_8 = 2 -- modo de Kestra_Textos: textos terminados en cero, en UTF-8
local LARGO = 1024 -- de los textos que dicen su propio largo
local EXITO = {EP_Init = 1} -- en las demás funciones EP_, 0
local NOMBRES = {EP_Init = "iniciar", EP_Kill = "cerrar", Kestra_Numeracion = "ultimo_numero",
                 EP_ReporteZporNumeros = "reporte_z_por_numeros", EP_ReporteZporFechas = "reporte_z_por_fechas"}
local APARTE = {Kestra_DefinirOperador = true, Kestra_Textos = true}

-- Una llamada que falló: llamada, desenlace (KESTRA_DESENLACE_...), causa (KESTRA_CAUSA_...) y mensaje, que como texto
-- es lo que se le muestra al operador.
local ErrorFiscal = {__tostring = function(error) return error.mensaje end}

local function es_error_fiscal(error)
  return getmetatable(error) == ErrorFiscal
end

-- EP_AbrirComprobanteFiscal, abrir_comprobante_fiscal.
local function nombre_del_metodo(funcion)
  local propio = funcion:gsub("^%u%a*_", ""):gsub("_", ""):gsub("(%l)(%u)", "%1_%2"):gsub("(%u)(%u%l)", "%1_%2")
  return NOMBRES[funcion] or propio:lower()
end

-- En cero, y con lugar para un cero detrás.
local function bufer(largo)
  return ffi.new("char[?]", largo + 1)
end

local Impresora = {}
Impresora.__index = Impresora

local function error_de(biblioteca, funcion)
  local frase = bufer(LARGO)
  biblioteca.Kestra_CausaTexto(frase, LARGO)
  local mensaje = ffi.string(frase)
  if mensaje == "" then mensaje = funcion .. ": no se pudo hacer." end
  return setmetatable({llamada = funcion, desenlace = biblioteca.Kestra_Desenlace(), causa = biblioteca.Kestra_Causa(),
                       mensaje = mensaje}, ErrorFiscal)
end

-- Los valores en el orden de la función, y el búfer que escribe, si escribe uno. Los que faltan, en blanco o en cero.
local function argumentos_de(funcion, definidos, valores)
  local nombrados = {}
  if type(valores[#valores]) == "table" then
    for nombre, valor in pairs(table.remove(valores)) do nombrados[nombre] = valor end
  end
  local argumentos, escrito = {}, nil
  for lugar, definido in ipairs(definidos) do
    local nombre, clase, bytes = unpack(definido)
    if clase == "bufer" then
      escrito = bufer(bytes > 0 and bytes or LARGO)
      argumentos[lugar] = escrito
    elseif clase == "largo" then
      argumentos[lugar] = LARGO
    else
      local valor = table.remove(valores, 1)
      if valor == nil then valor, nombrados[nombre] = nombrados[nombre], nil end
      argumentos[lugar] = clase == "texto" and tostring(valor or "") or valor or 0
    end
  end
  local sobra = valores[1] or next(nombrados)
  if sobra then error(funcion .. ": sobra un argumento: " .. tostring(sobra), 4) end
  return argumentos, escrito
end

local function metodo(funcion, definidos)
  local operacion = funcion:sub(1, 3) == "EP_"
  local function llamar(impresora, ...)
    local argumentos, escrito = argumentos_de(funcion, definidos, {...})
    local resultado = impresora.biblioteca[funcion](unpack(argumentos))
    local fallo = resultado == -1
    if operacion then fallo = resultado ~= (EXITO[funcion] or 0) end
    if fallo then error(error_de(impresora.biblioteca, funcion), 0) end
    if escrito then return ffi.string(escrito) end
    if not operacion then return resultado end
  end
  jit.off(llamar) -- de una llamada compilada no se puede volver a Lua: el operador
  return llamar
end

for _, declarada in ipairs(k.FUNCIONES) do
  local funcion, definidos = unpack(declarada)
  if not APARTE[funcion] then Impresora[nombre_del_metodo(funcion)] = metodo(funcion, definidos) end
end

local liberar = function() end -- las funciones del operador, que viven mientras la biblioteca las use

-- Contesta en lugar de los cuadros, con las funciones que tenga de estas; nil vuelve a los cuadros.
--   mensaje(texto, titulo, estilo)              1 Aceptar, 6 Sí, 7 No; estilo: 0 Aceptar, 4 y 36 Sí/No
--   informe_estados(impresora, fiscal, filas)   verdadero para mandar otra vez
--   memoria_llena()
function Impresora:definir_operador(operador)
  local registro, liberar_propias = nil, function() end
  if operador then registro, liberar_propias = kestra_operador.registro_de(operador) end
  self.biblioteca.Kestra_DefinirOperador(registro)
  liberar()
  liberar = liberar_propias
end

-- Lee el Fiscal.ini del directorio de trabajo. Una por programa.
local function nueva(ruta)
  local impresora = setmetatable({biblioteca = k.cargar(ruta)}, Impresora)
  impresora.biblioteca.Kestra_Textos(UTF_8)
  impresora:iniciar()
  return impresora
end

return {Impresora = nueva, es_error_fiscal = es_error_fiscal, constantes = k,
        exigir_impresora_virtual = require("kestra_virtual").exigir_impresora_virtual}
