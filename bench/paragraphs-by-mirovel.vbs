' 1,000 paragraphs with a bold word in each, 100 of them headings.
' Prints the seconds from the first paragraph to the saved document.
Const Bold = 1

Set mirovel = CreateObject("Mirovel.Mirovel")
mirovel.start
mirovel.create WScript.Arguments(0)
began = Timer
For number = 1 To 1000
    If number Mod 10 = 1 Then
        mirovel.setStyle "Heading 1"
    Else
        mirovel.setStyle "Normal"
    End If
    mirovel.insertText "Paragraph " & number & " has a "
    mirovel.setFontAttribute Bold, True
    mirovel.insertText "bold"
    mirovel.setFontAttribute Bold, False
    mirovel.insertText " word in it."
    mirovel.insertEndl
Next
mirovel.close
WScript.Echo Timer - began
mirovel.stop
