' Writes a report with everything that a document can hold, from a script host. On Windows, with mirovelcom installed:
'   cscript report.vbs C:\Documents\report.doc ...\samples\report-files
' Where mirovelcom is built, with the Word stand-in under Wine:
'   scripts/run-client samples/vbscript/report.vbs --log /tmp/report.log -- 'Z:\tmp\report.doc' \
'       'Z:\...\samples\report-files'
'
' It is composed (the setting Word/Compose): links, tags and the table of contents stand where they were asked for, and
' formatting reaches exactly as far as it was set.
Option Explicit

Const AlignLeft = 1, AlignCentred = 2, AlignRight = 3, AlignJustified = 4
Const Bold = 1, Italic = 2, Underline = 4, Strike = 8
Const FieldDate = 1, FieldTime = 2, FieldFileName = 3, FieldPage = 4
Const Embedded = 0
Const TextSetting = 1, NumberSetting = 2
Const ForReading = 1, AsUnicode = -1
Const HomePage = "http://www.lindholm.example/"

Dim mirovel, files, bullet, dot, degrees, deltaT, sigma, minus

' Greek letters and the minus sign come from a file: a script's own text is in the ANSI code page, and Wine's VBScript
' has no ChrW.
Sub FindCharacters
    Dim fileSystem, letters
    Set fileSystem = CreateObject("Scripting.FileSystemObject")
    letters = fileSystem.OpenTextFile(files & "\letters.txt", ForReading, False, AsUnicode).ReadAll
    deltaT = Left(letters, 1) & "T"
    sigma = Mid(letters, 2, 1)
    minus = Mid(letters, 3, 1)
    bullet = Chr(149)
    dot = " " & Chr(183) & " "
    degrees = " " & Chr(176) & "C"
End Sub

Sub StartDocument(fileName)
    Set mirovel = CreateObject("Mirovel.Mirovel")
    WScript.Echo "Document type: " & mirovel.getDocType()
    WScript.Echo "Settings page: " & mirovel.getPropPages()
    mirovel.overrideRegistry "Word", "WordTemplateName", files & "\report.dot", TextSetting
    mirovel.overrideRegistry "Word", "TableStyle", "Report Table", TextSetting
    mirovel.overrideRegistry "Word", "TOCTitle", "Contents", TextSetting
    mirovel.overrideRegistry "Word", "TOCLevel", "2", NumberSetting
    mirovel.overrideRegistry "Word", "Compose", "1", NumberSetting
    ' To find out why a document fails, have it written down:
    ' mirovel.overrideRegistry "Log", "Diagnostics", "C:\Documents\diagnostics.log", 1
    mirovel.trace 10
    mirovel.start
    mirovel.create fileName
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

Sub WritePoint(sign, text)
    WriteLine "Point", sign & vbTab & text
End Sub

Function Link(label, target)
    Link = "<a href=""" & target & """>" & label & "</a>"
End Function

Sub WriteTitle(tag, title)
    mirovel.insertTag tag
    mirovel.insertText title
    mirovel.insertEndl
End Sub

Sub StartChapter(tag, title)
    mirovel.setStyle "Heading 1"
    mirovel.insertPageBreak
    WriteTitle tag, title
End Sub

Sub WriteEmphasized(attribute, text)
    mirovel.setFontAttribute attribute, True
    mirovel.insertText text
    mirovel.setFontAttribute attribute, False
End Sub

Sub StartCell(alignment)
    mirovel.addCell
    mirovel.setTextAlign alignment
End Sub

Sub WriteCell(text)
    StartCell AlignLeft
    mirovel.insertText text
End Sub

Sub WriteNumberCell(text)
    StartCell AlignRight
    mirovel.insertText Replace(text, "-", minus)
End Sub

Sub SetTableFont(isBold)
    mirovel.setFontName "Arial"
    mirovel.setFontSize 9
    mirovel.setFontAttribute Bold, isBold
End Sub

Sub StartTable(caption, rowHeight)
    WriteLine "Caption", caption
    mirovel.startTable
    mirovel.addRow
    mirovel.setTableRowHeight rowHeight
    SetTableFont True
End Sub

Sub EndTable(note)
    mirovel.endTable
    mirovel.setTextAlign AlignJustified
    WriteLine "Table Note", note
End Sub

Sub WriteTitlePage
    Dim i
    mirovel.insertTag "start"
    mirovel.insertTag "cover"
    mirovel.setTextAlign AlignCentred
    For i = 1 To 6
        mirovel.insertEndl
    Next
    mirovel.insertImage files & "\logo.gif", "contents"
    mirovel.insertEndl
    WriteLine "Title", "The Weather of 2025"
    WriteLine "Subtitle", "Yearly report of the Lindholm Observatory"
    mirovel.setStyle "Normal"
    For i = 1 To 12
        mirovel.insertEndl
    Next
    mirovel.insertText "Printed on "
    mirovel.insertField FieldDate
    mirovel.insertEndl
    mirovel.setTextAlign AlignJustified
    mirovel.insertPageBreak
End Sub

Sub WriteHeaderAndFooter
    mirovel.startHeader
    mirovel.insertTag "head"
    mirovel.insertText "Lindholm Observatory" & vbTab
    WriteEmphasized Italic, "The Weather of 2025"
    mirovel.insertText vbTab
    mirovel.insertXref "Start", "start"
    mirovel.insertText dot
    mirovel.insertXref "Contents", "contents"
    mirovel.insertText dot
    mirovel.insertXref "End", "end"
    mirovel.endHeader

    mirovel.startFooter
    mirovel.insertField FieldDate
    mirovel.insertText vbTab & "Page "
    mirovel.insertField FieldPage
    mirovel.insertText vbTab & Link("Sources", "sources") & dot & Link("www.lindholm.example", HomePage)
    mirovel.endFooter
End Sub

Sub WriteContentsPage
    mirovel.insertTag "contents"
    WriteLine "TOC Heading", "The year in brief"
    WritePoint bullet, "The " & Link("highest reading", "July") & " was 31.4" & degrees & ", in a hot " & _
        Link("summer", "Summer") & "."
    WritePoint bullet, "The " & Link("lowest reading", "January") & " was " & minus & "12.9" & degrees & ", in a mild " & _
        Link("winter", "Winter") & "."
    WritePoint bullet, "The brook behind the station " & Link("rose above its banks", "flood") & " in October."
    WritePoint bullet, Link("How we measure", "method") & " has not changed since 1931; " & _
        Link("the signs", "signs") & " we use are explained."
    WritePoint bullet, "The " & Link("head of each page", "head") & " leads back to this list."
    mirovel.insertTOC
End Sub

' The table of contents lists the first part of the heading only.
Sub WriteSeasonHeading(name, deviation, more)
    mirovel.setStyle "Heading 3"
    mirovel.insertTag name
    mirovel.startTOCEntry
    mirovel.insertText name & " ("
    mirovel.insertXref deltaT, "delta"
    mirovel.insertText " +" & deviation & ")"
    mirovel.endTOCEntry
    mirovel.insertText more
    mirovel.insertEndl
End Sub

Sub WriteSeason(name, picture, mean, rain)
    mirovel.addRow
    StartCell AlignLeft
    mirovel.insertTag "Table 1, " & name
    mirovel.insertXref name, name
    StartCell AlignCentred
    mirovel.insertImage files & "\" & picture, ""
    WriteNumberCell mean & degrees
    WriteNumberCell rain & " mm"
End Sub

Sub WriteYear
    StartChapter "year", "The year at a glance"
    mirovel.setStyle "Body Text"
    mirovel.insertText "2025 was a mild year with a wet second half. The mean temperature was 7.8" & degrees & ", "
    WriteEmphasized Italic, "0.6 degrees above"
    mirovel.insertText " that of the thirty years before (" & Link(deltaT & " +0.6", "delta") & "). 655 " & _
        "millimetres of rain and melted snow fell, and six tenths of it fell in the six months from July to " & _
        "December. The station was read without a gap on 363 days; the " & Link("appendix", "figures") & _
        " has the figures."
    mirovel.insertEndl

    WriteLine "Heading 2", "The seasons"
    WriteParagraph "Winter stands for January, February and December of the same year. Spring stayed dry until " & _
        "the last week of May; summer and autumn brought nearly the same rain, though summer's came in a few " & _
        "heavy storms."
    mirovel.insertTag "seasons"
    StartTable "Table 1. Mean temperature and rain of the seasons", 26
    WriteCell "Season"
    WriteCell ""
    WriteNumberCell "Mean temperature"
    WriteNumberCell "Rain"
    SetTableFont False
    WriteSeason "Winter", "winter.bmp", "-0.8", "139"
    WriteSeason "Spring", "spring.bmp", "7.1", "125"
    WriteSeason "Summer", "summer.bmp", "17.0", "196"
    WriteSeason "Autumn", "autumn.bmp", "7.9", "195"
    EndTable "The mean of a season is that of its three months. Each season's name leads to what happened in it."

    WriteSeasonHeading "Winter", "0.4", ": snow on 31 days"
    WriteParagraph "A mean of " & Link(minus & "0.8" & degrees, "Table 1, Winter") & " hides one cold week: the " & _
        "night to the 9th of January brought " & Link("12.9 degrees of frost", "January") & "."
    WriteSeasonHeading "Spring", "0.2", ": 26 days without rain"
    WriteParagraph "April began dry, as " & Link("winter", "Winter") & " had ended. The drought broke with the " & _
        "storms that led over to " & Link("summer", "Summer") & "."
    WriteSeasonHeading "Summer", "1.2", ": 31.4" & degrees & " on the 12th of July"
    WriteParagraph "The " & Link("highest reading", "July") & " of the year was taken at 15:40 on the second day " & _
        "of a week without wind; " & Link("the log", "log") & " has it. Only three summers were warmer " & _
        Link("[1]", "source 1") & "."
    mirovel.insertTag "flood"
    WriteSeasonHeading "Autumn", "0.6", ": a flood in October"
    WriteParagraph Link("69 millimetres", "October") & " fell in October, most of them in the night to the " & _
        "21st, when the brook behind the station rose above its banks for the first time since the gauge was " & _
        "built " & Link("[1]", "source 1") & Link("[2]", "source 2") & "."
End Sub

Sub WriteMonths
    StartChapter "months", "Month by month"
    WriteLine "Heading 2", "Temperature and rain"
    WriteParagraph Link("July", "July") & " was both the warmest month and one of the wettest. The coldest night " & _
        "came in " & Link("January", "January") & ". The line shows the mean of each month, the bars the rain of " & _
        "each month. " & Link("Table 1", "seasons") & " has the seasons, the " & Link("appendix", "figures") & _
        " the figures of each month."
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
    StartChapter "method", "How we measure"
    WriteLine "Heading 2", "From a reading to a mean"
    WriteParagraph "The thermometers hang two metres above the grass in a white louvred box; the rain gauge " & _
        "stands ten metres to the south of it. What happens to a reading before it reaches a table has been " & _
        "the same since 1931:"
    mirovel.insertFile files & "\method.rtf", Embedded
    WriteParagraph "A month whose readings scatter by more than three " & Link(sigma, "sigma") & " is marked in " & _
        "the " & Link("table of the months", "figures") & ". In 2025 there was none."

    mirovel.insertTag "log"
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
    WriteEmphasized Bold, "highest of the year, see " & Link("Summer", "Summer")
    mirovel.insertEndl
    mirovel.setTextAlign AlignJustified
End Sub

Sub WriteMonth(name, season, mean, highest, lowest, rain)
    mirovel.addRow
    StartCell AlignLeft
    mirovel.insertTag name
    mirovel.insertText name
    StartCell AlignLeft
    mirovel.insertXref season, season
    WriteNumberCell mean
    WriteNumberCell highest
    WriteNumberCell lowest
    WriteNumberCell rain
End Sub

Sub WriteFigures
    mirovel.insertPageBreak
    mirovel.startHeader
    mirovel.insertText "Lindholm Observatory" & vbTab
    WriteEmphasized Italic, "Appendix"
    mirovel.insertText vbTab & Link("Month by month", "months") & dot & Link("Contents", "contents")
    mirovel.endHeader

    mirovel.insertTag "figures"
    WriteLine "Heading 1", "Appendix: the months in figures"
    WriteParagraph "Temperatures are in degrees Celsius, rain is in millimetres."
    StartTable "Table 3. The months of 2025", 20
    WriteCell "Month"
    WriteCell "Season"
    WriteNumberCell "Mean"
    WriteNumberCell "Highest"
    WriteNumberCell "Lowest"
    WriteNumberCell "Rain"
    SetTableFont False
    WriteMonth "January", "Winter", "-1.8", "6.4", "-12.9", "48"
    WriteMonth "February", "Winter", "-0.9", "8.1", "-11.2", "36"
    WriteMonth "March", "Spring", "2.7", "14.6", "-6.8", "41"
    WriteMonth "April", "Spring", "6.9", "20.3", "-2.1", "39"
    WriteMonth "May", "Spring", "11.8", "25.7", "1.4", "45"
    WriteMonth "June", "Summer", "15.6", "28.9", "5.8", "58"
    WriteMonth "July", "Summer", "18.3", "31.4", "8.9", "67"
    WriteMonth "August", "Summer", "17.1", "30.2", "7.7", "71"
    WriteMonth "September", "Autumn", "12.9", "24.8", "2.6", "62"
    WriteMonth "October", "Autumn", "7.8", "17.9", "-1.9", "69"
    WriteMonth "November", "Autumn", "3.1", "11.5", "-5.3", "64"
    WriteMonth "December", "Winter", "0.2", "8.8", "-9.6", "55"
    mirovel.addRow
    SetTableFont True
    WriteCell "Year"
    WriteCell ""
    WriteNumberCell "7.8"
    WriteNumberCell "31.4"
    WriteNumberCell "-12.9"
    WriteNumberCell "655"
    EndTable "The year's row holds the mean of the means, the extremes, and the sum of the rain."
End Sub

Sub WriteSign(tag, sign, meaning, label, target)
    mirovel.addRow
    StartCell AlignLeft
    mirovel.insertTag tag
    WriteEmphasized Italic, sign
    WriteCell meaning
    StartCell AlignLeft
    mirovel.insertXref label, target
End Sub

Sub WriteSigns
    mirovel.setStyle "Heading 1"
    WriteTitle "signs", "Signs and sources"
    StartTable "Table 2. Signs", 20
    WriteCell "Sign"
    WriteCell "Meaning"
    WriteCell "First used in"
    SetTableFont False
    WriteSign "delta", deltaT, "mean above that of 1995 to 2024", "The year at a glance", "year"
    WriteSign "sigma", sigma, "standard deviation", "How we measure", "method"
    EndTable "Both are in degrees Celsius."

    mirovel.insertTag "sources"
    WriteLine "Heading 2", "Sources"
    mirovel.insertTag "source 1"
    WritePoint "[1]", "Lindholm Observatory: Daily readings since 1931. Used for " & Link("Summer", "Summer") & _
        " and " & Link("Autumn", "Autumn") & "."
    mirovel.insertTag "source 2"
    WritePoint "[2]", "M. Lund: The brook and its floods. Used for " & Link("Autumn", "Autumn") & "."
End Sub

Sub WriteContact
    WriteLine "Heading 1", "The observatory"
    WriteParagraph "The observatory is open to visitors on the first Sunday of each month. Its sign, which is " & _
        "also on " & Link("the cover", "cover") & ", leads to the readings of today:"
    mirovel.setTextAlign AlignCentred
    mirovel.insertImage files & "\sign.bmp", HomePage
    mirovel.insertEndl
    mirovel.setStyle "Body Text"
    mirovel.setTextAlign AlignJustified
    mirovel.insertText "This report is the file "
    mirovel.insertField FieldFileName
    mirovel.insertText ", made at "
    mirovel.insertField FieldTime
    mirovel.insertText "."
    mirovel.insertEndl
    mirovel.setTextAlign AlignRight
    mirovel.insertText "A. Berg, for the observers"
    mirovel.insertTag "end"
End Sub

Sub WriteReport(fileName)
    FindCharacters
    StartDocument fileName
    MakeOldCalls
    WriteTitlePage
    WriteHeaderAndFooter
    WriteContentsPage
    WriteYear
    WriteMonths
    WriteMethod
    WriteSigns
    WriteFigures
    WriteContact
    mirovel.close
    mirovel.showLast
    mirovel.stop
End Sub

If WScript.Arguments.Count <> 2 Then
    WScript.Echo "usage: report.vbs DOCUMENT FOLDER-OF-FILES"
    WScript.Quit 2
End If
files = WScript.Arguments(1)

On Error Resume Next
WriteReport WScript.Arguments(0)
If Err.Number <> 0 Then
    WScript.Echo "The report could not be written: " & Err.Description
    WScript.Quit 1
End If
