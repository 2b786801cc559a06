// Generates the XIF file and the resource files of the example device, a fan-coil unit controller.
//
//     cscript //nologo generate.js [OUTPUT FOLDER]
var files = new ActiveXObject("Scripting.FileSystemObject");

function generate(output) {
    var examples = files.GetParentFolderName(files.GetParentFolderName(WScript.ScriptFullName));
    var inputs = files.BuildPath(examples, "fan-coil");

    var generator = new ActiveXObject("QVTovarek.Tovarek");
    generator.catalogDir = files.BuildPath(files.GetParentFolderName(examples), "catalog");
    generator.iniProfileFile = files.BuildPath(inputs, "profile.ini");
    generator.iniTemplateFile = files.BuildPath(inputs, "template.ini");
    generator.outputXIFfile = files.BuildPath(output, "fan-coil.xif");

    // The device's own types: where they are defined, and what becomes of them.
    generator.typeFilesXMLFormat = files.BuildPath(inputs, "format.xml");
    generator.userTypeFilePath = inputs;
    generator.typeFilesDirectory = output;
    generator.typeFilesBaseName = "fancoil";
    generator.creator = "Example Climate Works";

    generator.Generate();
}

// Numbers of errors are negative here; shown as hexadecimal they are the ones of the documents.
function hexadecimal(number) {
    return "0x" + (number < 0 ? number + 0x100000000 : number).toString(16).toUpperCase();
}

try {
    generate(files.GetAbsolutePathName(WScript.Arguments.Length > 0 ? WScript.Arguments(0) : "."));
} catch (error) {
    WScript.Echo("Error " + hexadecimal(error.number) + ": " + error.description);
    WScript.Quit(1);
}
WScript.Echo("Done: fan-coil.xif, and the resource files that files.lst names");
