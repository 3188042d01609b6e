' Writes a document of two pages, from a script host. On Windows, with mirovelcom installed:
'   cscript first.vbs C:\Documents\first.doc
' Where mirovelcom is built, with the Word stand-in under Wine:
'   scripts/run-client samples/vbscript/first.vbs --log /tmp/first.log -- 'Z:\tmp\first.doc'
Option Explicit

Sub WriteDocument(fileName)
    Dim mirovel
    Set mirovel = CreateObject("Mirovel.Mirovel")
    ' To find out why a document fails, have it written down:
    ' mirovel.overrideRegistry "Log", "Diagnostics", "C:\Documents\diagnostics.log", 1
    mirovel.trace 10
    ' The installer sets this for the machine; the DLL alone does not.
    mirovel.overrideRegistry "Word", "Compose", "1", 2
    mirovel.start
    mirovel.create fileName

    mirovel.setStyle "Heading 1"
    mirovel.insertText "A first document"
    mirovel.insertEndl
    mirovel.setStyle "Normal"
    mirovel.insertText "Word wrote this page. The client said what, one call after the other: "
    mirovel.insertText "a heading, some text, the end of a paragraph."
    mirovel.insertEndl
    mirovel.insertPageBreak

    mirovel.setStyle "Heading 1"
    mirovel.insertText "The second page"
    mirovel.insertEndl
    mirovel.setStyle "Normal"
    mirovel.insertText "It begins where the client asked for a page break."
    mirovel.insertEndl

    mirovel.close
    mirovel.stop
End Sub

If WScript.Arguments.Count <> 1 Then
    WScript.Echo "usage: first.vbs DOCUMENT"
    WScript.Quit 2
End If

On Error Resume Next
WriteDocument WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "The document could not be written: " & Err.Description
    WScript.Quit 1
End If
