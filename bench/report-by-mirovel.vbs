' The report of the comparison in docs/performance.md, through Mirovel.Mirovel.
' Prints the seconds from the first call of the first chapter to the saved document.
Const Chapters = 150
Const Rows = 20
Const Columns = 4
Const Sentence = "A sentence of the length that documents are made of, more or less. "

Set mirovel = CreateObject("Mirovel.Mirovel")
mirovel.start
mirovel.create WScript.Arguments(0)
began = Timer
For chapter = 1 To Chapters
    mirovel.setStyle "Heading 1"
    mirovel.insertText "Chapter " & chapter
    mirovel.insertEndl
    mirovel.setStyle "Normal"
    For paragraph = 1 To 3
        mirovel.insertText Sentence
        mirovel.insertText Sentence
        mirovel.insertEndl
    Next
    mirovel.setFontSize 9
    mirovel.insertText "Small print."
    mirovel.setFontSize 12
    mirovel.insertEndl
Next
mirovel.startTable
For row = 1 To Rows
    mirovel.addRow
    For column = 1 To Columns
        mirovel.addCell
        mirovel.insertText "Cell " & row & "." & column
    Next
Next
mirovel.endTable
mirovel.close
WScript.Echo Timer - began
mirovel.stop
