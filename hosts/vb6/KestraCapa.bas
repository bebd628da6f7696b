Attribute VB_Name = "KestraCapa"
' Kestra para Visual Basic 6 y VBA: textos sin completar, el número del comprobante como resultado, y un error de
' Visual Basic, con lo que hay que decirle al operador, cuando una llamada falla.
'
' Va junto a Kestra.bas (en VBA, KestraVBA.bas). Lo que no está aquí se llama directamente: Exigir "EP_ReporteX", EP_ReporteX()
Option Explicit

Public Const ERROR_FISCAL As Long = vbObjectError + 1000

Private Const TEXTOS_HASTA_EL_CERO As Long = 1
Private Const LARGO_DE_UNA_CAUSA As Long = 400

' Lee el Fiscal.ini del directorio actual: antes, ChDrive y ChDir.
Public Sub FiscalIniciar()
    Kestra_Textos TEXTOS_HASTA_EL_CERO
    If EP_Init() <> 1 Then Fallar "EP_Init"
End Sub

Public Sub FiscalCerrar()
    EP_Kill
End Sub

' Termina con un error cuando el resultado no es 0. Err.Source es la llamada, Err.Description la explicación.
Public Sub Exigir(ByVal llamada As String, ByVal resultado As Long)
    If resultado <> 0 Then Fallar llamada
End Sub

Public Sub FiscalAbrir(ByVal tipo As String, ByVal letra As String, ByVal nombre As String, ByVal documentoTipo As String, ByVal documentoNumero As String, ByVal responsabilidadIva As String, ByVal domicilio As String)
    Exigir "EP_AbrirComprobanteFiscal", EP_AbrirComprobanteFiscal(tipo, letra, nombre, "", documentoTipo, documentoNumero, responsabilidadIva, domicilio, "", "", "", "", 1)
End Sub

Public Sub FiscalItem(ByVal descripcion As String, ByVal cantidad As Double, ByVal precio As Double, ByVal iva As Double, Optional ByVal extra As String = "")
    Exigir "EP_ImprimirItem", EP_ImprimirItem(descripcion, cantidad, precio, iva, 0#, extra, "", "")
End Sub

Public Sub FiscalDescuento(ByVal descripcion As String, ByVal monto As Double)
    Exigir "EP_DescuentoGeneral", EP_DescuentoGeneral(descripcion, monto)
End Sub

Public Sub FiscalPercepcion(ByVal descripcion As String, ByVal monto As Double, ByVal iva As Double, ByVal calificador As String)
    Exigir "EP_EspecificarPercepcionGlobal", EP_EspecificarPercepcionGlobal(descripcion, monto, iva, calificador)
End Sub

Public Sub FiscalPago(ByVal descripcion As String, ByVal monto As Double)
    Exigir "EP_ImprimirPago", EP_ImprimirPago(descripcion, monto)
End Sub

' Cierra el comprobante; devuelve su número.
Public Function FiscalCerrarComprobante(ByVal tipo As String, ByVal letra As String) As String
    Dim numero As String
    numero = Space$(8)
    Exigir "EP_CerrarComprobanteFiscal", EP_CerrarComprobanteFiscal(tipo, letra, numero)
    FiscalCerrarComprobante = HastaElCero(numero)
End Function

' El reloj de la impresora.
Public Function FiscalFechaHora() As Date
    Dim reloj As String
    reloj = Space$(12)
    Exigir "EP_ObtenerFechaHora", EP_ObtenerFechaHora(reloj)
    FiscalFechaHora = DateSerial(2000 + Val(Mid$(reloj, 1, 2)), Val(Mid$(reloj, 3, 2)), Val(Mid$(reloj, 5, 2))) + TimeSerial(Val(Mid$(reloj, 7, 2)), Val(Mid$(reloj, 9, 2)), Val(Mid$(reloj, 11, 2)))
End Function

' Lo que la biblioteca escribió en un búfer.
Public Function HastaElCero(ByVal bufer As String) As String
    Dim cero As Long
    cero = InStr(bufer, vbNullChar)
    If cero = 0 Then HastaElCero = bufer Else HastaElCero = Left$(bufer, cero - 1)
End Function

Private Sub Fallar(ByVal llamada As String)
    Dim causa As String
    causa = Space$(LARGO_DE_UNA_CAUSA)
    If Kestra_CausaTexto(causa, LARGO_DE_UNA_CAUSA) > 0 Then causa = HastaElCero(causa) Else causa = "No se pudo hacer."
    Err.Raise ERROR_FISCAL, llamada, causa
End Sub
