' The same report as report-by-mirovel.vbs, written by a script that drives Word's objects itself: every member is
' looked up by its name and called in Word's process. It formats each paragraph where it stands, and keeps count of the
' characters in order not to ask Word.
Const Chapters = 150
Const Rows = 20
Const Columns = 4
Const Sentence = "A sentence of the length that documents are made of, more or less. "

Dim document, range, position

Sub Write(text)
    range.InsertAfter text
    position = position + Len(text)
End Sub

Sub EndParagraph()
    range.InsertParagraphAfter
    position = position + 1
End Sub

Sub FormatFrom(start, styleName, fontSize)
    Dim part
    Set part = document.Range(start, position)
    part.Style = styleName
    If fontSize <> 0 Then part.Font.Size = fontSize
End Sub

Set word = CreateObject("Word.Application")
Set document = word.Documents.Add
began = Timer
Set range = document.Range
position = 0
For chapter = 1 To Chapters
    start = position
    Write "Chapter " & chapter
    EndParagraph
    FormatFrom start, "Heading 1", 0
    For paragraph = 1 To 3
        start = position
        Write Sentence
        Write Sentence
        EndParagraph
        FormatFrom start, "Normal", 0
    Next
    start = position
    Write "Small print."
    EndParagraph
    FormatFrom start, "Normal", 9
Next
Write " " ' stays behind the table
Set table = document.Tables.Add(document.Range(position - 1, position - 1), Rows, Columns)
For row = 1 To Rows
    For column = 1 To Columns
        table.Cell(row, column).Range.InsertAfter "Cell " & row & "." & column
    Next
Next
document.SaveAs WScript.Arguments(0)
document.Close
WScript.Echo Timer - began
word.Quit
