// A host in JScript. Arguments: folder of the example, folder of the catalog, folder for outputs, folder of what the
// native program wrote. Ends in DONE when every check has passed; a script that fails is silent otherwise.
var faults = 0;
var checks = 0;
var files = new ActiveXObject("Scripting.FileSystemObject");

function check(what, found, wanted) {
    checks += 1;
    if (found !== wanted) {
        faults += 1;
        WScript.Echo("FAULT " + what + ": " + found + ", wanted: " + wanted);
    }
}

function create() {
    return new ActiveXObject("QVTovarek.Tovarek");
}

function readLines(path) {
    var stream = files.OpenTextFile(path, 1);
    var text = stream.ReadAll();
    stream.Close();
    return text.split("\r\n");
}

// What an action raises: "number|description".
function raised(action) {
    try {
        action();
    } catch (error) {
        return error.number + "|" + error.description;
    }
    return "nothing";
}

function newDocument(text) {
    var document = new ActiveXObject("MSXML2.DOMDocument");
    document.async = false;
    document.loadXML(text);
    return document;
}

// The list holds "name kind".
function setEveryProperty(listFile) {
    var node = newDocument("<a/>").documentElement;
    var lines = readLines(listFile);
    var count = 0;
    for (var i = 0; i < lines.length; i += 1) {
        var words = lines[i].split(" ");
        if (words.length !== 2) {
            continue;
        }
        count += 1;
        setProperty(create(), words[0], words[1], node);
    }
    check("number of properties", count, 33);
}

function setProperty(generator, name, kind, node) {
    // Beyond the code page and beyond 16 bits.
    var text = "\u00e9\u03a9\u65e5\ud83d\ude00 of " + name;
    if (name === "catalogDir" || name === "catalogFile") {
        // Setting these opens the catalog; the value stays whatever comes of it.
        raised(function () { generator[name] = text; });
        check(name, generator[name], text);
    } else if (kind === "string") {
        generator[name] = text;
        check(name, generator[name], text);
    } else if (kind === "integer") {
        generator[name] = "-70000";
        check(name, generator[name], -70000);
        check(name + ", no number", raised(function () { generator[name] = "many"; }).split("|")[0], "-2147352571");
    } else if (kind === "boolean") {
        generator[name] = false;
        check(name, generator[name], false);
        generator[name] = 1;
        check(name, generator[name], true);
    } else {
        generator[name] = node;
        check(name, generator[name] === node, true);
        check(name + ", no node", raised(function () { generator[name] = {}; }), "-2146828275|Type mismatch");
        check(name + ", null", raised(function () { generator[name] = null; }).split("|")[0], "-2147352571");
        check(name + " stays", generator[name] === node, true);
    }
}

function generateExample(exampleFolder, catalogFolder, outputFolder) {
    var generator = create();
    generator.catalogDir = catalogFolder;
    generator.xmlProfileFile = exampleFolder + "\\profile.xml";
    generator.xmlProfileNodeName = "DEVICEPROFILE";
    // The template as an element that the host has loaded itself.
    var document = newDocument("<none/>");
    document.load(exampleFolder + "\\template.xml");
    generator.xmlTemplateNode = document.documentElement.nodeName === "DEVICE"
        ? document.documentElement : document.getElementsByTagName("DEVICE").item(0);
    generator.mustGenerateTypes = false;
    // No code page holds this name.
    generator.outputXIFfile = outputFolder + "\\\u03a9\u65e5.xif";
    generator.Generate();
    return outputFolder + "\\\u03a9\u65e5.xif";
}

// The first line of an XIF file holds its name, the third one when it was written.
function compareXif(path, expectedPath) {
    var found = readLines(path);
    var wanted = readLines(expectedPath);
    check("number of lines", found.length, wanted.length);
    check("name in the code page", found[0], wanted[0].replace("fan-coil.xif", "??.xif"));
    for (var i = 1; i < wanted.length; i += 1) {
        if (i !== 2) {
            check("line " + (i + 1), found[i], wanted[i]);
        }
    }
}

function triggerErrors(exampleFolder) {
    var generator = create();
    check("no template", raised(function () { generator.Generate(); }), "-2147221454|Template file is not defined.");
    generator.xmlTemplateFile = exampleFolder + "\\none.xml";
    check("no file", raised(function () { generator.Generate(); }), "-2147221417|Error loading template XML file.");
    generator.xmlTemplateFile = exampleFolder + "\\template.xml";
    generator.xmlTemplateNodeName = "NONE";
    check("no element", raised(function () { generator.Generate(); }).split("|")[0], "-2147221416");
    generator.xmlTemplateNode = newDocument("<D><PROGRAMID>9000010a0b040100</PROGRAMID></D>").documentElement;
    generator.mustGenerateTypes = false;
    generator.xifProfileFile = exampleFolder + "\\none.xif";
    check("runtime error", raised(function () { generator.Generate(); }), "-2146828235|File not found");
}

var given = WScript.Arguments;
setEveryProperty("properties.txt");
triggerErrors(given(0));
compareXif(generateExample(given(0), given(1), given(2)), given(3) + "\\fan-coil.xif");
if (faults === 0 && checks > 100) {
    WScript.Echo("DONE after " + checks + " checks");
}
