' Generates the XIF file and the resource files of the example device, a fan-coil unit controller.
'
'     cscript //nologo generate.vbs [OUTPUT FOLDER]
Option Explicit

Dim files
Set files = CreateObject("Scripting.FileSystemObject")

On Error Resume Next
Generate
If Err.Number <> 0 Then
    WScript.Echo "Error " & Err.Number & " (&H" & Hex(Err.Number) & ") of " & Err.Source & ": " & Err.Description
    WScript.Quit 1
End If
WScript.Echo "Done: fan-coil.xif, and the resource files that files.lst names"

' The first error ends it; the caller has it in Err.
Sub Generate
    Dim examples, inputs, output, generator
    examples = files.GetParentFolderName(files.GetParentFolderName(WScript.ScriptFullName))
    inputs = files.BuildPath(examples, "fan-coil")
    output = OutputFolder

    Set generator = CreateObject("QVTovarek.Tovarek")
    generator.catalogDir = files.BuildPath(files.GetParentFolderName(examples), "catalog")
    generator.iniProfileFile = files.BuildPath(inputs, "profile.ini")
    generator.iniTemplateFile = files.BuildPath(inputs, "template.ini")
    generator.outputXIFfile = files.BuildPath(output, "fan-coil.xif")

    ' The device's own types: where they are defined, and what becomes of them.
    generator.typeFilesXMLFormat = files.BuildPath(inputs, "format.xml")
    generator.userTypeFilePath = inputs
    generator.typeFilesDirectory = output
    generator.typeFilesBaseName = "fancoil"
    generator.creator = "Example Climate Works"

    generator.Generate
End Sub

Function OutputFolder
    If WScript.Arguments.Count = 0 Then
        OutputFolder = files.GetAbsolutePathName(".")
    Else
        OutputFolder = files.GetAbsolutePathName(WScript.Arguments(0))
    End If
End Function
