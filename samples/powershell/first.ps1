# Not run where this was written (there was no PowerShell); the same calls as in samples/vbscript/first.vbs, which is tested.
# Writes a document of two pages, from a 64-bit PowerShell, with mirovelcom installed:
#   powershell -ExecutionPolicy Bypass -File first.ps1 C:\Documents\first.doc
param([Parameter(Mandatory = $true)][string]$fileName)
$ErrorActionPreference = 'Stop'

function Write-Heading($mirovel, $text) {
    $mirovel.setStyle('Heading 1')
    $mirovel.insertText($text)
    $mirovel.insertEndl()
    $mirovel.setStyle('Normal')
}

function Write-Document($fileName) {
    $mirovel = New-Object -ComObject Mirovel.Mirovel
    try {
        # The installer sets this for the machine; the DLL alone does not.
        $mirovel.overrideRegistry('Word', 'Compose', '1', 2)
        $mirovel.trace(10)
        $mirovel.start()
        $mirovel.create($fileName)

        Write-Heading $mirovel 'A first document'
        $mirovel.insertText('Word wrote this page. The client said what, one call after the other: ')
        $mirovel.insertText('a heading, some text, the end of a paragraph.')
        $mirovel.insertEndl()
        $mirovel.insertPageBreak()

        Write-Heading $mirovel 'The second page'
        $mirovel.insertText('It begins where the client asked for a page break.')
        $mirovel.insertEndl()

        $mirovel.close()
        $mirovel.stop()
    }
    finally {
        # Now, not when the collector comes by: the release ends a Word that is not visible.
        [void][Runtime.InteropServices.Marshal]::ReleaseComObject($mirovel)
    }
}

try {
    Write-Document $fileName
}
catch {
    Write-Output "The document could not be written: $($_.Exception.Message)"
    exit 1
}
