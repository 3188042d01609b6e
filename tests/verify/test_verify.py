"""The verification kit with the Word stand-in: what it asks, plays and writes."""

import contextlib
import json
import os
import pathlib
import re
import tempfile
import threading
import time

import kit
from support.endtoend import PATIENCE, ROOT, EndToEndTest, windows

ALL = "MIROVEL_KIT_ALL" in os.environ
GENERATOR = pathlib.Path(os.environ["MIROVEL_KIT_SESSIONS"])
# Asking it could end in a question to the user that nobody sees.
NOT_ASKED = {"closeDropsChanges"}
# Several other readings at once, none of which keeps another's question from being asked.
TURNED = {"deleteAnswersOne": False, "pageBreakRangeCoversBreak": False, "pageBreakParagraphMark": "always",
          "mixedStyleReadsFirst": False, "headerTakesContents": False, "hyperlinkWithoutLinkData": False,
          "bookmarkInFrontOfTable": "firstCell", "insertFileLastParagraph": "surplus", "endBeyondStoryIsRefused": False}


def switch_values():
    """The stand-in's switches, each with its values, the default first; as a profile has them."""
    text = (ROOT / "standin" / "model" / "SwitchTable.cpp").read_text("ascii")
    values = {name: [True, False] for name in re.findall(r"NAMED\((\w+)\)[,}]", text)}
    values.update((name, re.findall(r'"(\w+)"', words)) for name, words in re.findall(r"CHOICE\((\w+),([^)]*)\)", text)
                  if '"' in words)
    return values


def in_environment(switches):
    return ",".join(f"{name}={int(value) if isinstance(value, bool) else value}" for name, value in switches.items())


class KitTest(EndToEndTest):
    def run_kit(self, *options, **more):
        """Returns the outcome, what result.json holds, and the page. `meanwhile` is given the folder of the results."""
        script = self.folder / "verify.js"
        script.write_text(more.pop("change", lambda text: text)(kit.script()), "ascii")
        results = pathlib.Path(tempfile.mkdtemp(prefix="results", dir=self.folder))
        watch = threading.Thread(target=more.pop("meanwhile", lambda folder: None), args=[results])
        watch.start()
        outcome = self.run_client(script, "/kit:" + windows(kit.KIT), "/to:" + windows(results), *options, **more)
        watch.join()
        folder, = results.iterdir()
        page = (folder / "result.html").read_text("ascii")
        return outcome, json.loads((folder / "result.json").read_text("ascii")), page

    def ask(self, names, **more):
        """The answers by name."""
        _, result, page = self.run_kit("/sessions:0", "/report:0", "/chapters:0", *([f"/only:{','.join(names)}"] if names else []),
                                       **more)
        return {question["name"]: question for question in result["questions"]}, result, page

    def assertNoWordIsLeft(self):
        prefix = f"WINEPREFIX={self.folder / 'prefix'}".encode()
        deadline = time.monotonic() + 10
        while left := [process for process in pathlib.Path("/proc").glob("[0-9]*") if is_word(process, prefix)]:
            self.assertLess(time.monotonic(), deadline, f"a Word is left: {left}")
            time.sleep(0.1)


def is_word(process, prefix):
    with contextlib.suppress(OSError):
        return (b"wordstandin.exe" in (process / "cmdline").read_bytes()
                and prefix in (process / "environ").read_bytes().split(b"\0"))
    return False


class Runs(KitTest):
    def test_with_the_usual_word_everything_is_as_expected(self):
        options = [] if ALL else ["/sessions:1", "/first:6", "/report:0", "/chapters:1"]
        outcome, result, page = self.run_kit(*options, patience=3600 if ALL else PATIENCE)
        self.assertNoWordIsLeft()
        self.assertEqual([], [one["name"] + ": " + one["answerInWords"] for one in result["questions"] if one["outcome"] != "green"])
        self.assertEqual([], [one for one in result["documents"] if one["outcome"] != "green"])
        self.assertEqual(3 * kit.SESSIONS + 2 if ALL else 3, len(result["documents"]))
        self.assertEqual({name: values[0] for name, values in switch_values().items() if name not in NOT_ASKED}, result["switches"])
        self.assertEqual(["script", "counting", "typed", "fragments"], [cost["name"] for cost in result["costs"]])
        self.assertTrue(all(cost["seconds"] > 0 for cost in result["costs"]), result["costs"])
        self.assertEqual("9.0", result["word"]["version"])
        self.assertTrue(result["server"]["registered"])
        self.assertFalse(result["kit"]["stopped"])
        self.assertIn("Nothing is to be done", page)
        self.assertNotIn('class="amber">', page.split("</h1>")[1].split("<table>", 1)[1])
        self.assertIn("leaves alone", "\n".join(outcome.output))
        self.assertIn("result.json", "\n".join(outcome.output))
        self.assertNotIn(str(self.folder).replace("/", "\\\\"), json.dumps(result["documents"]))

    def test_with_another_word_the_questions_and_the_page_say_so(self):
        names = [*TURNED, "cellRangeKeepsMark"]
        answers, result, page = self.ask(names, env={"WORDSTANDIN_SWITCHES": in_environment(TURNED)})
        self.assertEqual({**TURNED, "cellRangeKeepsMark": True}, result["switches"])
        self.assertEqual({*TURNED}, {name for name, answer in answers.items() if answer["outcome"] == "amber"})
        self.assertEqual("green", answers["cellRangeKeepsMark"]["outcome"])
        self.assertEqual(len(TURNED), page.count('<tr class="isamber">'))
        self.assertIn("3, the number of letters", page)
        self.assertIn("answers some questions otherwise", page)

        # The result is a profile: a stand-in that takes it answers as that Word did.
        profile = self.folder / "profile.json"
        profile.write_text(json.dumps(result), "ascii")
        self.assertEqual(result["switches"], self.ask(names, env={"WORDSTANDIN_PROFILE": windows(profile)})[1]["switches"])

    def test_what_fails_is_red_and_the_rest_goes_on(self):
        # The call that makes the document of the second question.
        answers, result, page = self.ask(["newDocument", "lineEnds", "insertAtEnd"],
                                         env={"WORDSTANDIN_FAIL": "12:0x800a1066"}, status=1)
        self.assertEqual(["green", "green", "red"], sorted(answer["outcome"] for answer in answers.values()))
        failed, = [answer for answer in answers.values() if answer["outcome"] == "red"]
        self.assertIn("0x800a1066", failed["failure"])
        self.assertIn('<tr class="isred">', page)
        self.assertNoWordIsLeft()

    def test_a_word_that_ends_is_followed_by_another(self):
        answers, result, _ = self.ask(["newDocument", "lineEnds", "insertAtEnd"], env={"WORDSTANDIN_EXIT": "30"}, status=None)
        self.assertEqual(3, len(answers))
        self.assertIn("green", [answer["outcome"] for answer in answers.values()])
        self.assertNoWordIsLeft()

    def test_a_document_that_differs_is_red(self):
        def change(text):
            changed = re.sub("var kitFonts.*", lambda line: line[0].replace(",12,", ",13,"), text)
            self.assertNotEqual(text, changed)
            return changed

        _, result, page = self.run_kit("/questions:0", "/sessions:1", "/first:2", "/report:0", "/chapters:0", change=change,
                                       status=1)
        self.assertEqual(["font"] * 3, [one["differences"][0]["kind"] for one in result["documents"] if one["differences"]])
        self.assertIn("13, found ", page)
        self.assertIn("please send result.json", page)
        self.assertNoWordIsLeft()

    def test_it_stops_when_it_is_told(self):
        def stop(folder):
            deadline = time.monotonic() + PATIENCE
            while time.monotonic() < deadline:
                for file in folder.glob("*/RUNNING"):
                    file.unlink()
                    return
                time.sleep(0.02)

        _, result, page = self.run_kit("/report:0", meanwhile=stop)
        self.assertTrue(result["kit"]["stopped"])
        self.assertLess(len(result["questions"]), 20)
        self.assertEqual([], result["documents"])
        self.assertIn("stopped before the end", page)
        self.assertNoWordIsLeft()

    def test_without_a_dll_it_says_what_to_do(self):
        _, result, page = self.run_kit("/questions:0", "/sessions:1", "/report:0", "/chapters:0", registration=False,
                                       prefix=self.folder / "other", status=1)
        self.assertIn("There is no DLL", result["failure"])
        self.assertIn("There is no DLL", page)


class Questions(KitTest):
    def test_each_switch_has_a_question_whose_words_are_its_values(self):
        listing = self.folder / "listing.js"
        names = [name for name in kit.sources() if "/questions" in name or name.endswith(("text.js", "machine.js"))]
        listing.write_text(kit.script(names) + """
            for (var i = 0; i < questions.length; i++) {
                var words = [];
                for (var word in questions[i].words) {
                    words.push(word);
                }
                if (!questions[i].isSwitch) {
                    continue;
                }
                say([questions[i].name, questions[i].expected, words.join(" ")].join("\\t"));
            }
            """, "ascii")
        lines = [line.split("\t") for line in self.run_client(listing).output]
        expected = {name: (str(values[0]).lower() if isinstance(values[0], bool) else values[0],
                           sorted(str(value).lower() if isinstance(value, bool) else value for value in values))
                    for name, values in switch_values().items() if name not in NOT_ASKED}
        self.assertEqual(expected, {name: (default, sorted(words.split()))
                                    for name, default, words in lines})

    def test_each_other_reading_is_answered_by_its_question(self):
        for name, values in switch_values().items():
            if not ALL or name in NOT_ASKED:
                continue
            for value in values[1:]:
                with self.subTest(name=name, value=value):
                    switches = self.ask([name], env={"WORDSTANDIN_SWITCHES": in_environment({name: value})})[1]["switches"]
                    self.assertEqual({name: value}, switches)


class Comparison(KitTest):
    def test_each_kind_of_difference_is_seen(self):
        client = self.folder / "comparison.js"
        names = [name for name in kit.sources() if name.endswith(("/text.js", "/machine.js", "/sessions.js", "/reading.js", "/comparison.js"))]
        client.write_text(kit.script(names) + (pathlib.Path(__file__).parent / "comparisons.js").read_text("ascii"), "ascii")
        output = self.run_client(client).output
        self.assertEqual("every model is as itself", output[0])
        self.assertEqual(["text", "paragraph", "paragraph", "link", "link", "bookmark", "font",
                          "direct formatting that the style gives", "page", "field, entry or object", "text"], output[1:])


class Data(KitTest):
    def test_the_sessions_are_those_that_the_model_makes(self):
        files = self.folder / "files"
        files.mkdir()
        self.assertEqual(kit.sessions(GENERATOR, files), (kit.KIT / "source" / "sessions.js").read_text("ascii"))
        self.assertEqual({path.name: path.read_bytes() for path in files.iterdir()},
                         {path.name: path.read_bytes() for path in (kit.KIT / "files").iterdir()})

    def test_the_report_is_the_samples(self):
        self.assertEqual(kit.report(self.folder), (kit.KIT / "source" / "report.js").read_text("ascii"))

    def test_all_sources_are_run_and_keep_to_the_old_language(self):
        self.assertEqual({path.name for path in (kit.KIT / "source").iterdir()}, {pathlib.Path(name).name for name in kit.sources()})
        for name in kit.sources():
            text = (kit.KIT / name).read_text("ascii")
            self.assertIsNone(re.search(r",\s*[\]}]", re.sub(r'"(\\.|[^"\\])*"', '""', text)), name)
            self.assertIsNone(re.search(r"\bJSON\.|\.(forEach|map|filter|trim|bind)\(|\b(let|const) |=>", re.sub(
                r"//.*|\"(\\.|[^\"\\])*\"", "", text)), name)
