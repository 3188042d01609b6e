' Writes a report with everything that a document can hold, from a script host:
'   scripts/run-client samples/vbscript/report.vbs --log /tmp/report.log -- 'Z:\tmp\report.doc' \
'       'Z:\...\samples\report-files'
Option Explicit

Const AlignLeft = 1, AlignCentred = 2, AlignRight = 3, AlignJustified = 4
Const Bold = 1, Italic = 2, Underline = 4, Strike = 8
Const FieldDate = 1, FieldTime = 2, FieldFileName = 3, FieldPage = 4
Const Embedded = 0, Portrait = 0
Const TextSetting = 1, NumberSetting = 2
Const HomePage = "http://www.lindholm.example/"

Dim mirovel, files, degrees

Sub StartDocument(fileName)
    Set mirovel = CreateObject("Mirovel.Mirovel")
    WScript.Echo "Document type: " & mirovel.getDocType()
    WScript.Echo "Settings page: " & mirovel.getPropPages()
    mirovel.overrideRegistry "Word", "WordTemplateName", files & "\report.dot", TextSetting
    mirovel.overrideRegistry "Word", "TOCLevel", "2", NumberSetting
    mirovel.trace 10
    mirovel.start
    mirovel.create fileName
    mirovel.setOrientation Portrait
End Sub

' They do nothing; clients that still make them go on working.
Sub MakeOldCalls
    mirovel.setOption "quality", "best"
    mirovel.pushDirectory files
    mirovel.startFile "report"
    mirovel.insertDiagram 0, 100, 100
    mirovel.insertMark 0, True
    mirovel.insertLocate
    mirovel.popDirectory
End Sub

Sub WriteLine(style, text)
    mirovel.setStyle style
    mirovel.insertText text
    mirovel.insertEndl
End Sub

Sub WriteParagraph(text)
    WriteLine "Body Text", text
End Sub

' The table of contents lists the first part of the heading only.
Sub WriteHeadingWithEntry(text, more)
    mirovel.setStyle "Heading 3"
    mirovel.startTOCEntry
    mirovel.insertText text
    mirovel.endTOCEntry
    mirovel.insertText more
    mirovel.insertEndl
End Sub

Sub WriteEmphasized(attribute, text)
    mirovel.setFontAttribute attribute, True
    mirovel.insertText text
    mirovel.setFontAttribute attribute, False
End Sub

Sub WriteCell(text)
    mirovel.addCell
    mirovel.setTextAlign AlignLeft
    mirovel.insertText text
End Sub

' An alignment reaches to the next one, and a table's last no further than its cell. So every cell begins its own.
Sub WriteNumberCell(text)
    mirovel.addCell
    mirovel.setTextAlign AlignLeft
    mirovel.setTextAlign AlignRight
    mirovel.insertText text
End Sub

' A font reaches to the cell where the next one is set, and in each row no further than that cell's column. So a font
' for whole rows is set in a first column and ended in a last one.
Sub SetTableFont(isBold)
    mirovel.setFontName "Arial"
    mirovel.setFontSize 9
    mirovel.setFontAttribute Bold, isBold
End Sub

' What is in force when a table begins must be Normal: the text behind the table would otherwise go astray.
Sub StartTable(caption, rowHeight)
    WriteLine "Caption", caption
    mirovel.setStyle "Normal"
    mirovel.startTable
    mirovel.addRow
    mirovel.setTableRowHeight rowHeight
    mirovel.addCell
    SetTableFont True
End Sub

' A table leaves a space at the start of the paragraph behind it.
Sub EndTable(note)
    mirovel.endTable
    mirovel.insertEndl
    WriteLine "Table Note", note
End Sub

Sub WriteTitlePage
    Dim i
    mirovel.setTextAlign AlignCentred
    For i = 1 To 6
        mirovel.insertEndl
    Next
    mirovel.insertImage files & "\logo.gif", ""
    mirovel.insertEndl
    WriteLine "Title", "The Weather of 2025"
    WriteLine "Subtitle", "Yearly report of the Lindholm Observatory"
    mirovel.setStyle "Normal"
    For i = 1 To 12
        mirovel.insertEndl
    Next
    mirovel.insertText "Printed on "
    mirovel.insertField FieldDate
    mirovel.insertText " at "
    mirovel.insertField FieldTime
    mirovel.insertText " from the file "
    mirovel.insertField FieldFileName
    mirovel.insertEndl
    mirovel.setTextAlign AlignJustified
    mirovel.insertPageBreak
End Sub

' The footer comes before the tag: it turns the page break into a new section, and what stands at the break would get
' in front of it. The header comes behind the tag, because it leads there.
'
' A tag reaches to the next one. Not all readers find one that has a table of contents in it, so another one ends it
' before that.
Sub WriteContentsPage
    mirovel.startFooter
    mirovel.insertField FieldDate
    mirovel.insertText vbTab & "Page "
    mirovel.insertField FieldPage
    mirovel.insertText vbTab & "<a href=""" & HomePage & """>www.lindholm.example</a>"
    mirovel.endFooter

    mirovel.insertTag "contents"
    mirovel.insertEndl
    mirovel.insertTag "list"
    mirovel.insertTOC

    mirovel.startHeader
    mirovel.insertText "Lindholm Observatory" & vbTab
    WriteEmphasized Italic, "The Weather of 2025"
    mirovel.insertText vbTab
    mirovel.insertXref "Contents", "contents"
    mirovel.endHeader
    mirovel.insertPageBreak
End Sub

Sub WriteSeason(name, picture, mean, rain)
    mirovel.addRow
    WriteCell name
    mirovel.addCell
    mirovel.setTextAlign AlignCentred
    mirovel.insertImage files & "\" & picture, ""
    WriteNumberCell mean & degrees
    WriteNumberCell rain & " mm"
End Sub

Sub WriteYear
    WriteLine "Heading 1", "The year at a glance"
    mirovel.setStyle "Body Text"
    mirovel.insertText "2025 was a mild year with a wet second half. The mean temperature was 7.8" & degrees & ", "
    WriteEmphasized Italic, "0.6 degrees above"
    mirovel.insertText " that of the thirty years before. 655 millimetres of rain and melted snow fell, and " & _
        "six tenths of it fell in the six months from July to December. The station was read without a gap on " & _
        "363 days."
    mirovel.insertEndl

    WriteLine "Heading 2", "The seasons"
    WriteParagraph "Winter stands for January, February and December of the same year. Spring stayed dry until " & _
        "the last week of May; summer and autumn brought nearly the same rain, though summer's came in a few " & _
        "heavy storms."
    StartTable "Table 1. Mean temperature and rain of the seasons", 26
    mirovel.insertText "Season"
    WriteCell ""
    WriteNumberCell "Mean temperature"
    WriteNumberCell "Rain"
    SetTableFont False
    WriteSeason "Winter", "winter.bmp", "-0.8", "139"
    WriteSeason "Spring", "spring.bmp", "7.1", "125"
    WriteSeason "Summer", "summer.bmp", "17.0", "196"
    WriteSeason "Autumn", "autumn.bmp", "7.9", "195"
    SetTableFont False
    EndTable "The mean of a season is that of its three months."

    WriteHeadingWithEntry "Summer", ": 31.4" & degrees & " on the 12th of July"
    WriteParagraph "The highest reading of the year was taken at 15:40 on the second day of a week without " & _
        "wind. Only three summers of the station's records were warmer."
    WriteHeadingWithEntry "Autumn", ": a wet October"
    WriteParagraph "69 millimetres fell in October, most of them in the night to the 21st, when the brook " & _
        "behind the station rose above its banks for the first time since the gauge was built."
End Sub

Sub WriteMonths
    mirovel.insertPageBreak
    mirovel.insertTag "months"
    WriteLine "Heading 1", "Month by month"
    WriteLine "Heading 2", "Temperature and rain"
    WriteParagraph "July was both the warmest month and one of the wettest. The coldest night, that to the 9th " & _
        "of January, brought 12.9 degrees of frost. The line shows the mean of each month, the bars the rain " & _
        "of each month; the appendix has the figures."
    mirovel.setTextAlign AlignCentred
    mirovel.insertImage files & "\chart.emf", ""
    mirovel.insertEndl
    WriteLine "Figure Note", "Figure 1. Rain and mean temperature of each month"
    mirovel.setTextAlign AlignJustified

    WriteLine "Heading 2", "The figures to work with"
    WriteParagraph "The sheet below belongs to this document. A double click opens it with the figures of all " & _
        "months, to be sorted, summed up or drawn in another way."
    mirovel.setTextAlign AlignCentred
    mirovel.insertFile files & "\yearly.xls", Embedded
    mirovel.insertEndl
    mirovel.setTextAlign AlignJustified
End Sub

Sub WriteMethod
    mirovel.insertPageBreak
    WriteLine "Heading 1", "How we measure"
    WriteLine "Heading 2", "From a reading to a mean"
    WriteParagraph "The thermometers hang two metres above the grass in a white louvred box; the rain gauge " & _
        "stands ten metres to the south of it. What happens to a reading before it reaches a table has been " & _
        "the same since 1931:"
    mirovel.insertFile files & "\method.rtf", Embedded

    WriteLine "Heading 2", "The log"
    WriteParagraph "Observers keep the log by hand. Its columns are the time, the temperature and the rain " & _
        "since midnight. A line through a reading says that it was corrected, and the correction is underlined:"
    mirovel.setStyle "Normal"
    mirovel.setTextAlign AlignLeft
    mirovel.setFontName "Courier New"
    mirovel.setFontSize 9
    mirovel.insertText "15:20   31.1   0.0"
    mirovel.insertEndl
    mirovel.insertText "15:30   "
    WriteEmphasized Strike, "13.2"
    mirovel.insertText "   0.0   "
    WriteEmphasized Underline, "31.2"
    mirovel.insertText "  digits swapped, A. Berg"
    mirovel.insertEndl
    mirovel.insertText "15:40   31.4   0.0   "
    WriteEmphasized Bold, "highest of the year"
    mirovel.insertEndl
End Sub

Sub WriteContact
    WriteLine "Heading 2", "The observatory"
    mirovel.setTextAlign AlignJustified
    WriteParagraph "The observatory is open to visitors on the first Sunday of each month. Its sign leads to " & _
        "the readings of today:"
    mirovel.setTextAlign AlignCentred
    mirovel.insertImage files & "\sign.bmp", HomePage
    mirovel.insertEndl
    mirovel.setStyle "Body Text"
    mirovel.setTextAlign AlignRight
    mirovel.insertText "A. Berg, for the observers"
    mirovel.insertEndl
    mirovel.setTextAlign AlignJustified
End Sub

Sub WriteMonth(name, mean, highest, lowest, rain)
    mirovel.addRow
    WriteCell name
    WriteNumberCell mean
    WriteNumberCell highest
    WriteNumberCell lowest
    WriteNumberCell rain
End Sub

Sub WriteAppendix
    mirovel.insertPageBreak
    mirovel.startHeader
    mirovel.insertText "Lindholm Observatory" & vbTab
    WriteEmphasized Italic, "Appendix"
    mirovel.insertText vbTab
    mirovel.insertXref "Month by month", "months"
    mirovel.endHeader

    WriteLine "Heading 1", "Appendix: the months in figures"
    WriteParagraph "Temperatures are in degrees Celsius, rain is in millimetres."
    StartTable "Table 2. The months of 2025", 20
    mirovel.insertText "Month"
    WriteNumberCell "Mean"
    WriteNumberCell "Highest"
    WriteNumberCell "Lowest"
    WriteNumberCell "Rain"
    SetTableFont False
    WriteMonth "January", "-1.8", "6.4", "-12.9", "48"
    WriteMonth "February", "-0.9", "8.1", "-11.2", "36"
    WriteMonth "March", "2.7", "14.6", "-6.8", "41"
    WriteMonth "April", "6.9", "20.3", "-2.1", "39"
    WriteMonth "May", "11.8", "25.7", "1.4", "45"
    WriteMonth "June", "15.6", "28.9", "5.8", "58"
    WriteMonth "July", "18.3", "31.4", "8.9", "67"
    WriteMonth "August", "17.1", "30.2", "7.7", "71"
    WriteMonth "September", "12.9", "24.8", "2.6", "62"
    WriteMonth "October", "7.8", "17.9", "-1.9", "69"
    WriteMonth "November", "3.1", "11.5", "-5.3", "64"
    WriteMonth "December", "0.2", "8.8", "-9.6", "55"
    SetTableFont False
    mirovel.addRow
    mirovel.addCell
    mirovel.setTextAlign AlignLeft
    SetTableFont True
    mirovel.insertText "Year"
    WriteNumberCell "7.8"
    WriteNumberCell "31.4"
    WriteNumberCell "-12.9"
    WriteNumberCell "655"
    SetTableFont False
    EndTable "The year's row holds the mean of the means, the extremes, and the sum of the rain."
End Sub

Sub WriteReport(fileName)
    StartDocument fileName
    MakeOldCalls
    WriteTitlePage
    WriteContentsPage
    WriteYear
    WriteMonths
    WriteMethod
    WriteContact
    WriteAppendix
    mirovel.close
    mirovel.showLast
    mirovel.stop
End Sub

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "usage: report.vbs DOCUMENT FOLDER-OF-FILES"
    WScript.Quit 2
End If
files = WScript.Arguments(1)
degrees = " " & Chr(176) & "C"

On Error Resume Next
WriteReport WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "The report could not be written: " & Err.Description
    WScript.Quit 1
End If
