' Writes links of every kind, from a script host. On Windows, with mirovelcom installed:
'   cscript links.vbs C:\Documents\links.doc ...\samples\report-files
' Where mirovelcom is built, with the Word stand-in under Wine:
'   scripts/run-client samples/vbscript/links.vbs --log /tmp/links.log -- 'Z:\tmp\links.doc' \
'       'Z:\...\samples\report-files'
'
' It is composed (the setting Word/Compose): each link covers just its text, and may lead to a tag that is placed later.
Option Explicit

Const EmbeddedFile = 0, LinkedFile = 2, LinkToFile = 4
Const Landscape = 1
Const HomePage = "http://www.lindholm.example/"

Dim mirovel, files

Sub EndLine(text)
    mirovel.insertText text
    mirovel.insertEndl
End Sub

' A tag may be used before it is placed, and is drawn if it is placed before the document is closed.
Sub WriteReferences
    mirovel.insertXref "The end", "end"
    EndLine " of this page,"
    mirovel.insertXref "a place that nobody made", "nowhere"
    EndLine ","
    mirovel.insertTag "Start"
    mirovel.insertXref "the start", "Start"
    EndLine ","
    mirovel.insertXref "another tag", "start"
    EndLine " whose name differs in case."
    mirovel.insertXref "No link", ""
    EndLine " where there is no target."
End Sub

Sub WriteAddresses
    mirovel.insertXref "The observatory", HomePage
    EndLine "."
    mirovel.insertFile HomePage, EmbeddedFile
    EndLine "."
    mirovel.insertXref "A file", files & "\method.rtf"
    EndLine "."
    mirovel.insertFile files & "\method.rtf", LinkedFile
    EndLine "."
    mirovel.insertFile files & "\missing.txt", LinkToFile
    EndLine "."
    mirovel.insertFile files & "\missing.txt", LinkedFile
    EndLine "Nothing was inserted in front of this."
End Sub

Sub WriteMarkup
    EndLine "See <a href=""" & HomePage & "log"">the log</a> and <a href=""#GUID 7"">item 7</a>."
    mirovel.insertTag "GUID 7"
    EndLine "This is item 7."
End Sub

Sub WritePictures
    mirovel.insertImage files & "\winter.bmp", "end"
    EndLine " leads to the end."
    mirovel.insertImage files & "\summer.bmp", HomePage
    EndLine " leads to the observatory."
    mirovel.insertFile files & "\yearly.xls", LinkedFile
    EndLine " stays outside."
End Sub

Sub WriteLinksInCells
    mirovel.startTable
    mirovel.addRow
    mirovel.addCell
    mirovel.insertXref "Start", "Start"
    mirovel.addCell
    mirovel.insertXref "Observatory", HomePage
    mirovel.endTable
    mirovel.insertEndl
End Sub

Sub WriteLinks(fileName)
    Set mirovel = CreateObject("Mirovel.Mirovel")
    ' The installer sets this for the machine; the DLL alone does not.
    mirovel.overrideRegistry "Word", "Compose", "1", 2
    mirovel.start
    mirovel.create fileName
    ' To find out why a document fails, have it written down:
    ' mirovel.overrideRegistry "Log", "Diagnostics", "C:\Documents\diagnostics.log", 1
    mirovel.trace 10
    mirovel.setOrientation Landscape
    WriteReferences
    WriteAddresses
    WriteMarkup
    WritePictures
    WriteLinksInCells
    mirovel.insertTag "end"
    EndLine "The end."
    mirovel.close
    mirovel.stop
End Sub

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "usage: links.vbs DOCUMENT FOLDER-OF-FILES"
    WScript.Quit 2
End If
files = WScript.Arguments(1)

On Error Resume Next
WriteLinks WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "The links could not be written: " & Err.Description
    WScript.Quit 1
End If
