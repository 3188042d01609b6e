# Not run where this was written (there was no Python for Windows); its syntax and its calls are checked by a test.
# Writes a document of two pages, from a 64-bit Python with pywin32 (pip install pywin32), with mirovelcom installed:
#   python first.py C:\Documents\first.doc
import sys

import pythoncom
import win32com.client.dynamic


def write_heading(mirovel, text):
    mirovel.setStyle("Heading 1")
    mirovel.insertText(text)
    mirovel.insertEndl()
    mirovel.setStyle("Normal")


def write_document(file_name):
    # By name: a failure is then a com_error with the text that other scripts get.
    mirovel = win32com.client.dynamic.Dispatch("Mirovel.Mirovel")
    # The installer sets this for the machine; the DLL alone does not.
    mirovel.overrideRegistry("Word", "Compose", "1", 2)
    mirovel.trace(10)
    mirovel.start()
    mirovel.create(file_name)

    write_heading(mirovel, "A first document")
    mirovel.insertText("Word wrote this page. The client said what, one call after the other: ")
    mirovel.insertText("a heading, some text, the end of a paragraph.")
    mirovel.insertEndl()
    mirovel.insertPageBreak()

    write_heading(mirovel, "The second page")
    mirovel.insertText("It begins where the client asked for a page break.")
    mirovel.insertEndl()

    mirovel.close()
    mirovel.stop()


def main():
    if len(sys.argv) != 2:
        print("usage: first.py DOCUMENT")
        return 2
    try:
        write_document(sys.argv[1])
    except pythoncom.com_error as error:
        details = error.excepinfo
        print("The document could not be written:", details[2] if details else error.strerror)
        return 1
    return 0


if __name__ == "__main__":
    sys.exit(main())
