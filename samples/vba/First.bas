' Not run where this was written (there was no VBA); the same calls as in samples/vbscript/first.vbs, which is tested.
' Writes a document of two pages, from a macro of a 64-bit Office: import this module (Alt+F11, File, Import File) and run
' WriteFirst. A reference to "Document Word 2.0 Type Library" (Tools, References) is not needed. With one, declare the object
' "As Object" all the same: then a failure is an error with a text.
Option Explicit

Private Sub WriteHeading(mirovel As Object, text As String)
    mirovel.setStyle "Heading 1"
    mirovel.insertText text
    mirovel.insertEndl
    mirovel.setStyle "Normal"
End Sub

Private Sub WriteDocument(fileName As String)
    Dim mirovel As Object
    Set mirovel = CreateObject("Mirovel.Mirovel")
    ' The installer sets both for the machine; the DLL alone does not. In a macro of Word the second one matters: stop would
    ' otherwise close the documents of the Word that the macro runs in, and end it.
    mirovel.overrideRegistry "Word", "Compose", "1", 2
    mirovel.overrideRegistry "Word", "OwnInstance", "true", 3
    mirovel.trace 10
    mirovel.start
    mirovel.create fileName

    WriteHeading mirovel, "A first document"
    mirovel.insertText "Word wrote this page. The client said what, one call after the other: "
    mirovel.insertText "a heading, some text, the end of a paragraph."
    mirovel.insertEndl
    mirovel.insertPageBreak

    WriteHeading mirovel, "The second page"
    mirovel.insertText "It begins where the client asked for a page break."
    mirovel.insertEndl

    mirovel.close
    mirovel.stop
End Sub

Public Sub WriteFirst()
    On Error GoTo Failed
    WriteDocument Environ$("USERPROFILE") & "\Documents\first.doc"
    Exit Sub
Failed:
    MsgBox "The document could not be written: " & Err.Description
End Sub
