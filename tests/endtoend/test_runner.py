"""scripts/run-client itself: what it promises to those who try things with it."""

import os
import subprocess
import tempfile
import unittest

from support.endtoend import BUILD, ROOT, STANDIN, EndToEndTest, windows

ENVIRONMENT = 'WScript.Echo CreateObject("WScript.Shell").ExpandEnvironmentStrings("%{}%")\r\n'


def run(*words, cwd=None):
    return subprocess.run([ROOT / "scripts" / "run-client", *words], stdin=subprocess.DEVNULL, capture_output=True,
                          text=True, errors="replace", timeout=240, cwd=cwd, check=False)


class Clients(EndToEndTest):
    def test_output_status_and_arguments_of_a_vbscript(self):
        outcome = self.run_vbscript('WScript.Echo WScript.Arguments(0) & "|" & WScript.Arguments(1)\r\nWScript.Quit 7\r\n',
                                    "two words", 'a"b', status=7)
        self.assertEqual((["two words|a\"b"], ""), (outcome.output, outcome.errors))

    def test_output_status_and_arguments_of_a_jscript(self):
        outcome = self.run_jscript("WScript.Echo(WScript.Arguments.Item(0));\r\nWScript.Quit(3);\r\n", "one", status=3)
        self.assertEqual((["one"], ""), (outcome.output, outcome.errors))

    def test_status_of_a_program(self):
        outcome = self.drive([("nonsense",)], status=3)
        self.assertEqual(["nonsense -> driver: unknown step: nonsense"], outcome.output)

    def test_an_unhandled_error_in_a_script_is_not_silent(self):
        outcome = self.run_vbscript('WScript.Echo "before"\r\nErr.Raise 5\r\nWScript.Echo "after"\r\n', status=1)
        self.assertEqual(["before"], outcome.output)
        self.assertIn("stopped at an error that it does not handle", outcome.errors)

    def test_a_script_that_does_not_parse_is_not_silent(self):
        outcome = self.run_vbscript("this is ( not a script\r\n", status=1)
        self.assertIn("stopped at an error that it does not handle", outcome.errors)


class Settings(EndToEndTest):
    def read(self, *names, settings, **options):
        """The client shows the values with their kinds, as reg.exe does."""
        key = "HKCU\\Software\\Lumarkscribe\\Mirovelcom\\"
        lines = ["On Error Resume Next", 'Set shell = CreateObject("WScript.Shell")']
        for name in names:
            lines += [f'value = "(none)"', f'value = shell.RegRead("{key}{name}")',
                      'WScript.Echo TypeName(value) & " " & value', "Err.Clear"]
        return self.run_vbscript("\r\n".join(lines) + "\r\n", settings=settings,
                                **options).output

    def test_kinds(self):
        names = ["Word\\TOCLevel", "Word\\Negative", "Settings\\InstallDir", "Word\\WordTemplateName"]
        settings = {"Word/TOCLevel": "3", "Word/Negative": "-1", "Settings/InstallDir": "c:\\a b"}
        self.assertEqual(["Long 3", "Long -1", "String c:\\a b", "String "], self.read(*names, settings=settings))

    def test_a_run_does_not_see_the_settings_of_the_run_before(self):
        self.assertEqual(["Long 4"], self.read("Word\\TOCLevel", settings={"Word/TOCLevel": "4"}))
        self.assertEqual(["String (none)", "String "],
                         self.read("Word\\TOCLevel", "Word\\WordTemplateName", settings={}))

    def test_documents_are_composed_unless_something_else_is_asked_for(self):
        self.assertEqual(["Long 1"], self.read("Word\\Compose", settings={}, composing=True))
        self.assertEqual(["Long 0"], self.read("Word\\Compose", settings={}))
        self.assertEqual(["Long 2"], self.read("Word\\Compose", settings={"Word/Compose": "2"}, composing=True))

    def test_the_template_name_can_be_set(self):
        self.assertEqual(["String my.dot"],
                         self.read("Word\\WordTemplateName", settings={"Word/WordTemplateName": "my.dot"}))


class KeptPrefix(EndToEndTest):
    def session(self, document, **options):
        return self.drive([("new",), ("start",), ("create", windows(document)), ("insertText", "x"), ("close",), ("stop",)],
                          **options)

    def test_each_run_has_its_own_environment_and_transcript(self):
        document = self.new_document()
        first = self.session(document)
        self.assertAllOk(first)
        failing = next(i for i, line in enumerate(first.transcript, 1) if ".InsertAfter(" in line)
        second = self.session(document, env={"WORDSTANDIN_FAIL": f"{failing}:0x800a1066"})
        self.assertTrue(second.transcript[failing - 1].endswith(" !! 0x800a1066"), second.transcript[failing - 1])
        self.assertIn("insertText -> QdxException insertText\\nCOMERROR 0x800a1066\\n", "\n".join(second.output))
        third = self.session(document)
        self.assertLines(first.transcript, third.transcript)
        self.assertAllOk(third)

    def test_wine_stays_awake_and_registers_once(self):
        self.assertAllOk(self.session(self.new_document()))
        before = self.registrations()
        self.assertEqual(2, len(before))
        self.assertAllOk(self.session(self.new_document()))
        self.assertEqual(before, self.registrations())

    def test_a_word_that_a_client_leaves_is_not_the_next_clients(self):
        left = self.drive([("run", windows(STANDIN), "/run"), ("isWordRunning",)])
        self.assertEqual("isWordRunning -> yes", left.output[-1])
        before = self.registrations()
        self.assertEqual(["isWordRunning -> no"], self.drive([("isWordRunning",)]).output)
        self.assertNotEqual(before, self.registrations())

    def registrations(self):
        """When what was registered."""
        return {path.name: path.stat().st_mtime_ns for path in (self.folder / "prefix").glob("registered-*")}

    def test_the_client_sees_the_environment(self):
        outcome = self.run_vbscript(ENVIRONMENT.format("MIROVEL_SAYS"), env={"MIROVEL_SAYS": "a b=c"})
        self.assertEqual(["a b=c"], outcome.output)


class ScratchPrefix(unittest.TestCase):
    def scratch_prefixes(self):
        folder = ROOT / "build" / "wine"
        return {p.name for p in folder.glob("run.*")}

    def test_nothing_is_left(self):
        before = self.scratch_prefixes()
        with tempfile.TemporaryDirectory(dir=BUILD) as folder:
            script = os.path.join(folder, "client.vbs")
            with open(script, "w", encoding="ascii") as file:
                file.write('WScript.Echo CreateObject("WScript.Shell").ExpandEnvironmentStrings("%WINEPREFIX%")\r\n')
            result = run("client.vbs", "--transcript", "word.txt", "--log", "trace.log", cwd=folder)
            self.assertEqual((0, ""), (result.returncode, result.stderr))
            self.assertEqual(["client.vbs"], os.listdir(folder))
        self.assertEqual(set(), self.scratch_prefixes() - before)


class BadUsage(unittest.TestCase):
    def refused(self, reason, *words):
        result = run(*words)
        self.assertEqual((2, ""), (result.returncode, result.stdout))
        self.assertIn(reason, result.stderr)

    def setUp(self):
        self.folder = tempfile.TemporaryDirectory(dir=BUILD)
        self.addCleanup(self.folder.cleanup)
        self.client = os.path.join(self.folder.name, "client.vbs")
        with open(self.client, "w", encoding="ascii"):
            pass

    def test_usage(self):
        text = os.path.join(self.folder.name, "client.txt")
        with open(text, "w", encoding="ascii"):
            pass
        self.refused("no client given")
        self.refused("no such client: nowhere.vbs", "nowhere.vbs")
        self.refused("ends in .vbs, .js or .exe", text)
        self.refused("two clients", self.client, self.client)
        self.refused("unknown option: --fast", self.client, "--fast")
        self.refused("--log needs a value", self.client, "--log")
        self.refused("--env wants NAME=VALUE", self.client, "--env", "NAME")
        self.refused("--env cannot set TEMP", self.client, "--env", "temp=x")
        self.refused("--setting wants Group/Name=value", self.client, "--setting", "Word=1")
        self.refused("does not fit into 32 bits", self.client, "--setting", "Word/TOCLevel=4294967296")
        self.refused("--transcript: no such folder", self.client, "--transcript", "/nowhere/t.txt")
        self.refused("is a folder", self.client, "--log", self.folder.name)

    def test_help_is_no_error(self):
        result = run("--help")
        self.assertEqual((0, ""), (result.returncode, result.stderr))
        self.assertIn("--transcript FILE", result.stdout)
