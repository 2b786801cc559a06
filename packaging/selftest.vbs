' Generates the XIF file of the example device from a node of this system's XML, for selftest.cmd.
'
'     cscript //nologo selftest.vbs OUTPUT_FOLDER
Option Explicit

Dim files
Set files = CreateObject("Scripting.FileSystemObject")

On Error Resume Next
Generate files.GetParentFolderName(WScript.ScriptFullName), WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " (&H" & Hex(Err.Number) & ") of " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Done"

Sub Generate(package, output)
    Dim inputs, document, generator
    inputs = files.BuildPath(package, "examples\fan-coil")
    ' WScript's own function: Wine's other one makes no document.
    Set document = WScript.CreateObject("MSXML2.DOMDocument")
    document.async = False
    document.preserveWhiteSpace = True
    If Not document.load(files.BuildPath(inputs, "template.xml")) Then Err.Raise 53, "MSXML", document.parseError.reason

    Set generator = CreateObject("QVTovarek.Tovarek")
    generator.catalogDir = files.BuildPath(package, "catalog")
    generator.iniProfileFile = files.BuildPath(inputs, "profile.ini")
    Set generator.xmlTemplateNode = document.documentElement
    generator.mustGenerateTypes = False
    generator.outputXIFfile = files.BuildPath(output, "fan-coil.xif")
    generator.Generate
End Sub
