-- Los ejemplos emiten comprobantes: solo en una impresora virtual, si no se les pide otra cosa.
local ffi = require("ffi")

local v = {}

-- Adónde lleva un enlace, hasta el final; nada si no hay tal archivo.
local function destino(ruta)
  if ffi.os == "Windows" then return nil end
  pcall(ffi.cdef, "char *realpath(const char *ruta, char *resultado); void free(void *);")
  local hallado = ffi.C.realpath(ruta, nil)
  if hallado == nil then return nil end
  local texto = ffi.string(hallado)
  ffi.C.free(hallado)
  return texto
end

local function dispositivo_virtual(dispositivo)
  local direccion = dispositivo:lower():match("^tcp:(.*):%d+$")
  if direccion then
    return direccion == "localhost" or direccion == "[::1]" or direccion:match("^127%.%d+%.%d+%.%d+$") ~= nil
  end
  if dispositivo:sub(1, 9) == "\\\\.\\pipe\\" then return true end
  return dispositivo ~= "" and (destino(dispositivo) or ""):match("^/dev/pts/%d+$") ~= nil
end

-- ¿Es virtual la impresora de ese archivo? Una dirección de esta máquina, una tubería o una pseudoterminal.
function v.impresora_virtual(archivo)
  local ini = io.open(archivo or "Fiscal.ini", "rb")
  if not ini then return false end
  local hay, todas = false, true
  -- La clave puede estar más de una vez, también en secciones ajenas: no se elige cuál vale.
  for renglon in ini:lines() do
    local clave, dispositivo = renglon:match("^%s*([%w_]+)%s*=%s*(.-)%s*$")
    if clave and clave:lower() == "impresoradispositivo" then
      hay, todas = true, todas and dispositivo_virtual(dispositivo)
    end
  end
  ini:close()
  return hay and todas
end

-- Termina el programa con 2, salvo con una impresora virtual o con --impresora-real entre los argumentos.
function v.exigir_impresora_virtual(argumentos)
  for _, argumento in ipairs(argumentos) do
    if argumento == "--impresora-real" then return end
  end
  -- La variable KESTRA_DISPOSITIVO se antepone a Fiscal.ini: con ella no.
  if (os.getenv("KESTRA_DISPOSITIVO") or "") == "" and v.impresora_virtual() then return end
  io.stderr:write("La impresora de Fiscal.ini no es virtual: para usarla igual, --impresora-real.\n")
  os.exit(2)
end

return v
