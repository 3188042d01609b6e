// Compiled by the tests, with mcs; not run where this was written (there was no .NET beside Word's COM).
// Writes a document of two pages. On Windows, with mirovelcom installed, for a 64-bit process:
//   csc /platform:x64 First.cs && First C:\Documents\first.doc
using System;
using System.Runtime.InteropServices;

static class First
{
    const short Integer = 2;

    static void WriteHeading(dynamic mirovel, string text)
    {
        mirovel.setStyle("Heading 1");
        mirovel.insertText(text);
        mirovel.insertEndl();
        mirovel.setStyle("Normal");
    }

    static void WriteDocument(string fileName)
    {
        // By name and late bound: a failure is then a COMException with the text that scripts get. Early bound calls
        // go through the virtual table, whose exceptions are C++ ones.
        dynamic mirovel = Activator.CreateInstance(Type.GetTypeFromProgID("Mirovel.Mirovel", true));
        try
        {
            // The installer sets this for the machine; the DLL alone does not.
            mirovel.overrideRegistry("Word", "Compose", "1", Integer);
            mirovel.trace((short)10);
            mirovel.start();
            mirovel.create(fileName);

            WriteHeading(mirovel, "A first document");
            mirovel.insertText("Word wrote this page. The client said what, one call after the other: ");
            mirovel.insertText("a heading, some text, the end of a paragraph.");
            mirovel.insertEndl();
            mirovel.insertPageBreak();

            WriteHeading(mirovel, "The second page");
            mirovel.insertText("It begins where the client asked for a page break.");
            mirovel.insertEndl();

            mirovel.close();
            mirovel.stop();
        }
        finally
        {
            // Now, not when the collector comes by: the release ends a Word that is not visible.
            Marshal.ReleaseComObject(mirovel);
        }
    }

    // The class lives in a single-threaded apartment.
    [STAThread]
    static int Main(string[] arguments)
    {
        if (arguments.Length != 1)
        {
            Console.WriteLine("usage: First DOCUMENT");
            return 2;
        }
        try
        {
            WriteDocument(arguments[0]);
            return 0;
        }
        catch (COMException e)
        {
            Console.WriteLine("The document could not be written: " + e.Message);
            return 1;
        }
    }
}
