Option Explicit
' Uses the library as any script would, and says what it is told of what cannot be.
Dim till, text
Set till = CreateObject("Kestra.Caja")
WScript.Echo "creada: " & TypeName(till)
text = "de antes"
WScript.Echo "desenlace " & till.kestra_desenlace & ", " & till.KESTRA_CAUSATEXTO(text) & " [" & text & "]"
On Error Resume Next
till.EP_NoHay
Tell "no hay"
till.EP_Copias
Tell "falta"
till.EP_Copias 1, 2
Tell "sobra"
till.EP_Copias "muchas"
Tell "palabras"
till.EP_Copias "1,5"
Tell "coma"
till.EP_Copias "1"
Tell "cifras"
till.Kestra_CausaTexto "texto"
Tell "sin variable"
till.Kestra_CausaTexto (text)
Tell "por valor"
till.Kestra_CausaTexto text
Tell "variable"

Sub Tell(what)
  WScript.Echo what & ": " & Err.Number
  Err.Clear
End Sub
