Option Explicit
' Creates the library's public classes as any script would.
Dim init, example
Set init = CreateObject("Kestra.InitClass")
init.InitVBCall
Set example = CreateObject("Kestra.ExampleClass")
WScript.Echo "creadas: " & TypeName(init) & " " & TypeName(example)
