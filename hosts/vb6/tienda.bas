Attribute VB_Name = "Tienda"
' La jornada de un comercio: una factura, su nota de crédito, una página no fiscal, el X y el Z.
'
' En Visual Basic 6 es el objeto inicial Sub Main; en VBA se ejecuta desde la ventana Inmediato: Jornada
Option Explicit

Private Const SIN_IMPRESORA_VIRTUAL As String = "La impresora de Fiscal.ini no es virtual: lo que se imprima es de verdad. ¿Usarla igual?"

Public Sub Main()
    Jornada
End Sub

Public Sub Jornada()
    Dim explicacion As String
    If Not ImpresoraVirtual("Fiscal.ini") Then
        If MsgBox(SIN_IMPRESORA_VIRTUAL, vbYesNo + vbQuestion + vbDefaultButton2, "Tienda") <> vbYes Then Exit Sub
    End If
    On Error GoTo Fallo
    FiscalIniciar
    Exigir "EP_SetEncabezado", EP_SetEncabezado("Gracias por su compra", 1, 0)
    Paso "EP_SetEncabezado"
    Factura
    NotaDeCredito
    Pagina
    Exigir "EP_ReporteX", EP_ReporteX()
    Paso "EP_ReporteX"
    Exigir "EP_ReporteZ", EP_ReporteZ()
    Paso "EP_ReporteZ"
Salida:
    On Error Resume Next
    FiscalCerrar
    Exit Sub
Fallo:
    explicacion = Err.Source & ": " & Err.Description
    Debug.Print explicacion
    MsgBox explicacion, vbCritical, "Tienda"
    Resume Salida
End Sub

Private Sub Factura()
    Dim numero As String
    AbrirAlCliente "FC"
    Paso "EP_AbrirComprobanteFiscal         factura A"
    FiscalItem "Resma A4 75 g", 10, 320, 21, "Caja cerrada"
    Paso "EP_ImprimirItem                   10 x 320,00 (21%)"
    FiscalItem "Diccionario", 2, 4500, 10.5
    Paso "EP_ImprimirItem                   2 x 4500,00 (10,5%)"
    FiscalDescuento "Descuento contado", 200
    Paso "EP_DescuentoGeneral               -200,00"
    FiscalPercepcion "Percepcion IIBB", 150, 0, "O"
    Paso "EP_EspecificarPercepcionGlobal    150,00"
    FiscalPago "Transferencia", 20000
    Paso "EP_ImprimirPago                   20000,00"
    numero = FiscalCerrarComprobante("FC", "A")
    Paso "EP_CerrarComprobanteFiscal"
    Debug.Print "Factura A emitida: " & numero
End Sub

Private Sub NotaDeCredito()
    Dim numero As String
    AbrirAlCliente "NC"
    Paso "EP_AbrirComprobanteFiscal         nota de credito A"
    FiscalItem "Diccionario", 1, 4500, 10.5, "Devolucion"
    Paso "EP_ImprimirItem                   1 x 4500,00 (10,5%)"
    numero = FiscalCerrarComprobante("NC", "A")
    Paso "EP_CerrarComprobanteFiscal"
    Debug.Print "Nota de credito A emitida: " & numero
End Sub

Private Sub Pagina()
    Exigir "EP_AbrirComprobanteNoFiscal", EP_AbrirComprobanteNoFiscal()
    Paso "EP_AbrirComprobanteNoFiscal"
    Exigir "EP_ImprimirTextoNoFiscal", EP_ImprimirTextoNoFiscal("Retirar por deposito")
    Paso "EP_ImprimirTextoNoFiscal"
    Exigir "EP_CerrarComprobanteNoFiscal", EP_CerrarComprobanteNoFiscal()
    Paso "EP_CerrarComprobanteNoFiscal"
End Sub

Private Sub AbrirAlCliente(ByVal tipo As String)
    FiscalAbrir tipo, "A", "Libreria Muñoz S.R.L.", "CUIT", "30000000007", "I", "Belgrano 1234"
End Sub

Private Sub Paso(ByVal texto As String)
    Debug.Print Left$(texto & Space$(52), 52) & " ok"
End Sub

' ¿Está en esta máquina la impresora de ese archivo? Una que no es virtual imprime comprobantes de verdad.
Private Function ImpresoraVirtual(ByVal archivo As String) As Boolean
    Dim canal As Integer, renglon As String
    If Dir$(archivo) = "" Then Exit Function
    canal = FreeFile
    Open archivo For Input As #canal
    Do While Not EOF(canal)
        Line Input #canal, renglon
        renglon = LCase$(Replace(renglon, " ", ""))
        If renglon Like "impresoradispositivo=*" Then
            renglon = Mid$(renglon, InStr(renglon, "=") + 1)
            ImpresoraVirtual = renglon Like "tcp:127.0.0.1:*" Or renglon Like "tcp:localhost:*" Or renglon Like "tcp:[[]::1]:*" Or renglon Like "\\.\pipe\*"
            Exit Do
        End If
    Loop
    Close #canal
End Function
