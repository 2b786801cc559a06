# Generates the XIF file and the resource files of the example device, a fan-coil unit controller.
#
#     powershell -ExecutionPolicy Bypass -File generate.ps1 [OUTPUT FOLDER]
param([string] $OutputFolder = '.')
$ErrorActionPreference = 'Stop'

$examples = Split-Path -Parent $PSScriptRoot
$inputs = Join-Path $examples 'fan-coil'
# The generator knows the current folder of the process only, not that of PowerShell.
$output = $ExecutionContext.SessionState.Path.GetUnresolvedProviderPathFromPSPath($OutputFolder)

try {
    $generator = New-Object -ComObject QVTovarek.Tovarek
    $generator.catalogDir = Join-Path (Split-Path -Parent $examples) 'catalog'
    $generator.iniProfileFile = Join-Path $inputs 'profile.ini'
    $generator.iniTemplateFile = Join-Path $inputs 'template.ini'
    $generator.outputXIFfile = Join-Path $output 'fan-coil.xif'

    # The device's own types: where they are defined, and what becomes of them.
    $generator.typeFilesXMLFormat = Join-Path $inputs 'format.xml'
    $generator.userTypeFilePath = $inputs
    $generator.typeFilesDirectory = $output
    $generator.typeFilesBaseName = 'fancoil'
    $generator.creator = 'Example Climate Works'

    $generator.Generate()
} catch {
    $cause = $_.Exception.GetBaseException()
    Write-Host ('Error 0x{0:X8} of {1}: {2}' -f $cause.HResult, $cause.Source, $cause.Message)
    exit 1
}
Write-Host 'Done: fan-coil.xif, and the resource files that files.lst names'
