-- La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z.
package.path = (arg[0]:match("^(.*/)") or "./") .. "?.lua;" .. package.path
local kestra = require("kestra")

local CLIENTE = {
  nombre1 = "Libreria Muñoz S.R.L.", documento_tipo = "CUIT", documento_numero = "30000000007",
  responsabilidad_iva = "I", domicilio1 = "Belgrano 1234", copias = 1,
}

-- Cuenta una llamada hecha; si falló, el error siguió hasta el final del programa.
local function paso(texto, resultado)
  print(("%-52s ok"):format(texto))
  return resultado
end

local function factura(impresora)
  paso("EP_AbrirComprobanteFiscal         factura A", impresora:abrir_comprobante_fiscal("FC", "A", CLIENTE))
  paso("EP_ImprimirItem                   10 x 320,00 (21%)",
       impresora:imprimir_item("Resma A4 75 g", 10, 320.00, 21.0, {extra1 = "Caja cerrada"}))
  paso("EP_ImprimirItem                   2 x 4500,00 (10,5%)", impresora:imprimir_item("Diccionario", 2, 4500.00, 10.5))
  paso("EP_DescuentoGeneral               -200,00", impresora:descuento_general("Descuento contado", 200.00))
  paso("EP_EspecificarPercepcionGlobal    150,00",
       impresora:especificar_percepcion_global("Percepcion IIBB", 150.00, 0.0, "O"))
  paso("EP_ImprimirPago                   20000,00", impresora:imprimir_pago("Transferencia", 20000.00))
  local numero = paso("EP_CerrarComprobanteFiscal", impresora:cerrar_comprobante_fiscal("FC", "A"))
  print("Factura A emitida: " .. numero)
end

local function nota_de_credito(impresora)
  paso("EP_AbrirComprobanteFiscal         nota de credito A", impresora:abrir_comprobante_fiscal("NC", "A", CLIENTE))
  paso("EP_ImprimirItem                   1 x 4500,00 (10,5%)",
       impresora:imprimir_item("Diccionario", 1, 4500.00, 10.5, {extra1 = "Devolucion"}))
  local numero = paso("EP_CerrarComprobanteFiscal", impresora:cerrar_comprobante_fiscal("NC", "A"))
  print("Nota de credito A emitida: " .. numero)
end

local function pagina(impresora)
  paso("EP_AbrirComprobanteNoFiscal", impresora:abrir_comprobante_no_fiscal())
  paso("EP_ImprimirTextoNoFiscal", impresora:imprimir_texto_no_fiscal("Retirar por deposito"))
  paso("EP_CerrarComprobanteNoFiscal", impresora:cerrar_comprobante_no_fiscal())
end

kestra.exigir_impresora_virtual(arg)
local bien, problema = pcall(function()
  local impresora = kestra.Impresora()
  paso("EP_SetEncabezado", impresora:set_encabezado("Gracias por su compra", 1, 0))
  factura(impresora)
  nota_de_credito(impresora)
  pagina(impresora)
  paso("EP_ReporteX", impresora:reporte_x())
  paso("EP_ReporteZ", impresora:reporte_z())
  impresora:cerrar()
end)
if not bien then
  if not kestra.es_error_fiscal(problema) then error(problema, 0) end
  io.stderr:write(problema.llamada, ": ", tostring(problema), "\n")
  os.exit(1)
end
