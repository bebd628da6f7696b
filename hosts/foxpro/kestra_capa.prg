* Kestra para Visual FoxPro: textos sin completar, el número del comprobante como resultado, y un error, con lo que hay
* que decirle al operador, cuando una llamada falla.
*
* Va junto a kestra.prg: SET PROCEDURE TO kestra_capa ADDITIVE. Lo que no está aquí se llama directamente:
* FiscalExigir("EP_ReporteX", EP_ReporteX())

#DEFINE TEXTOS_HASTA_EL_CERO 1
#DEFINE LARGO_DE_UNA_CAUSA 400

* Lee el Fiscal.ini del directorio actual: antes, SET DEFAULT TO.
PROCEDURE FiscalIniciar()
   DO kestra
   Kestra_Textos(TEXTOS_HASTA_EL_CERO)
   IF EP_Init() <> 1
      FiscalFallar("EP_Init")
   ENDIF
ENDPROC

PROCEDURE FiscalCerrar()
   EP_Kill()
ENDPROC

* Termina con un error cuando el resultado no es 0: en un TRY, loError.Message es la llamada y la explicación.
PROCEDURE FiscalExigir(tcLlamada, tnResultado)
   IF tnResultado <> 0
      FiscalFallar(tcLlamada)
   ENDIF
ENDPROC

PROCEDURE FiscalAbrir(tcTipo, tcLetra, tcNombre, tcDocumentoTipo, tcDocumentoNumero, tcResponsabilidadIva, tcDomicilio)
   FiscalExigir("EP_AbrirComprobanteFiscal", EP_AbrirComprobanteFiscal(tcTipo, tcLetra, tcNombre, "", tcDocumentoTipo, ;
      tcDocumentoNumero, tcResponsabilidadIva, tcDomicilio, "", "", "", "", 1))
ENDPROC

PROCEDURE FiscalItem(tcDescripcion, tnCantidad, tnPrecio, tnIva, tcExtra)
   FiscalExigir("EP_ImprimirItem", EP_ImprimirItem(tcDescripcion, tnCantidad, tnPrecio, tnIva, 0.0, tcExtra, "", ""))
ENDPROC

PROCEDURE FiscalDescuento(tcDescripcion, tnMonto)
   FiscalExigir("EP_DescuentoGeneral", EP_DescuentoGeneral(tcDescripcion, tnMonto))
ENDPROC

PROCEDURE FiscalPercepcion(tcDescripcion, tnMonto, tnIva, tcCalificador)
   FiscalExigir("EP_EspecificarPercepcionGlobal", EP_EspecificarPercepcionGlobal(tcDescripcion, tnMonto, tnIva, tcCalificador))
ENDPROC

PROCEDURE FiscalPago(tcDescripcion, tnMonto)
   FiscalExigir("EP_ImprimirPago", EP_ImprimirPago(tcDescripcion, tnMonto))
ENDPROC

* Cierra el comprobante; devuelve su número.
FUNCTION FiscalCerrarComprobante(tcTipo, tcLetra)
   LOCAL lcNumero
   lcNumero = SPACE(8)
   FiscalExigir("EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal(tcTipo, tcLetra, @lcNumero))
   RETURN HastaElCero(lcNumero)
ENDFUNC

* Lo que la biblioteca escribió en un búfer.
FUNCTION HastaElCero(tcBufer)
   LOCAL lnCero
   lnCero = AT(CHR(0), tcBufer)
   RETURN IIF(lnCero = 0, tcBufer, LEFT(tcBufer, lnCero - 1))
ENDFUNC

PROCEDURE FiscalFallar(tcLlamada)
   LOCAL lcCausa
   lcCausa = SPACE(LARGO_DE_UNA_CAUSA)
   IF Kestra_CausaTexto(@lcCausa, LARGO_DE_UNA_CAUSA) > 0
      lcCausa = HastaElCero(lcCausa)
   ELSE
      lcCausa = "No se pudo hacer."
   ENDIF
   ERROR tcLlamada + ": " + lcCausa
ENDPROC
