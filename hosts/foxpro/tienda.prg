* La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z. Para Visual FoxPro 8 o
* posterior, que tienen TRY: DO tienda
LOCAL loError
IF NOT ImpresoraVirtual("Fiscal.ini")
   IF MESSAGEBOX("La impresora de Fiscal.ini no es virtual: lo que se imprima es de verdad. ¿Usarla igual?", 4 + 32 + 256, "Tienda") <> 6
      RETURN
   ENDIF
ENDIF
SET PROCEDURE TO kestra_capa ADDITIVE
TRY
   FiscalIniciar()
   FiscalExigir("EP_SetEncabezado", EP_SetEncabezado("Gracias por su compra", 1, 0))
   Paso("EP_SetEncabezado")
   Factura()
   NotaDeCredito()
   Pagina()
   FiscalExigir("EP_ReporteX", EP_ReporteX())
   Paso("EP_ReporteX")
   FiscalExigir("EP_ReporteZ", EP_ReporteZ())
   Paso("EP_ReporteZ")
   FiscalCerrar()
CATCH TO loError
   ? loError.Message
   MESSAGEBOX(loError.Message, 16, "Tienda")
ENDTRY
RETURN

PROCEDURE Factura()
   LOCAL lcNumero
   AbrirAlCliente("FC")
   Paso("EP_AbrirComprobanteFiscal         factura A")
   FiscalItem("Resma A4 75 g", 10, 320.00, 21.0, "Caja cerrada")
   Paso("EP_ImprimirItem                   10 x 320,00 (21%)")
   FiscalItem("Diccionario", 2, 4500.00, 10.5, "")
   Paso("EP_ImprimirItem                   2 x 4500,00 (10,5%)")
   FiscalDescuento("Descuento contado", 200.00)
   Paso("EP_DescuentoGeneral               -200,00")
   FiscalPercepcion("Percepcion IIBB", 150.00, 0.0, "O")
   Paso("EP_EspecificarPercepcionGlobal    150,00")
   FiscalPago("Transferencia", 20000.00)
   Paso("EP_ImprimirPago                   20000,00")
   lcNumero = FiscalCerrarComprobante("FC", "A")
   Paso("EP_CerrarComprobanteFiscal")
   ? "Factura A emitida: " + lcNumero
ENDPROC

PROCEDURE NotaDeCredito()
   LOCAL lcNumero
   AbrirAlCliente("NC")
   Paso("EP_AbrirComprobanteFiscal         nota de credito A")
   FiscalItem("Diccionario", 1, 4500.00, 10.5, "Devolucion")
   Paso("EP_ImprimirItem                   1 x 4500,00 (10,5%)")
   lcNumero = FiscalCerrarComprobante("NC", "A")
   Paso("EP_CerrarComprobanteFiscal")
   ? "Nota de credito A emitida: " + lcNumero
ENDPROC

PROCEDURE Pagina()
   FiscalExigir("EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal())
   Paso("EP_AbrirComprobanteNoFiscal")
   FiscalExigir("EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal("Retirar por deposito"))
   Paso("EP_ImprimirTextoNoFiscal")
   FiscalExigir("EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal())
   Paso("EP_CerrarComprobanteNoFiscal")
ENDPROC

PROCEDURE AbrirAlCliente(tcTipo)
   FiscalAbrir(tcTipo, "A", "Libreria Muñoz S.R.L.", "CUIT", "30000000007", "I", "Belgrano 1234")
ENDPROC

PROCEDURE Paso(tcTexto)
   ? PADR(tcTexto, 52) + " ok"
ENDPROC

* ¿Está en esta máquina la impresora de ese archivo? Una que no es virtual imprime comprobantes de verdad.
FUNCTION ImpresoraVirtual(tcArchivo)
   LOCAL lcDispositivo
   IF NOT FILE(tcArchivo)
      RETURN .F.
   ENDIF
   lcDispositivo = LOWER(CHRTRAN(STREXTRACT(CHR(10) + FILETOSTR(tcArchivo), CHR(10) + "ImpresoraDispositivo", CHR(10), 1, 3), " " + CHR(13), ""))
   lcDispositivo = SUBSTR(lcDispositivo, 2)
   RETURN LIKE("tcp:127.0.0.1:*", lcDispositivo) OR LIKE("tcp:localhost:*", lcDispositivo) OR ;
      LIKE("tcp:[::1]:*", lcDispositivo) OR LIKE("\\.\pipe\*", lcDispositivo)
ENDFUNC
