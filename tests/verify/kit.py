"""The verification kit's sources, and its data as they are made.

    kit.py GENERATOR    writes the data anew: verify/source/sessions.js, verify/source/report.js and verify/files/;
                        GENERATOR is the built sessions_of_kit
"""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
KIT = ROOT / "verify"
SESSIONS = 50

# Of the sample report: calls that open and end, and old ones that do nothing.
NOT_PLAYED = {"overrideRegistry", "trace", "start", "create", "close", "showLast", "stop", "getDocType", "getPropPages",
              "setOption", "pushDirectory", "startFile", "insertDiagram", "insertMark", "insertLocate", "popDirectory"}


def windows(path):
    return "Z:" + str(path).replace("/", "\\")


def sources():
    """The names of the sources in their order; verify.wsf has the list."""
    return re.findall(r'src="(.*?)"', (KIT / "verify.wsf").read_text("ascii"))


def script(names=None):
    """Sources as one script: Wine's script host has none of several files."""
    return "".join((KIT / name).read_text("ascii") for name in names or sources())


def sessions(generator, folder):
    """sessions.js; the files that sessions insert are written to the folder."""
    result = subprocess.run([ROOT / "scripts" / "in-wine", generator, str(SESSIONS), windows(folder)],
                            check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120)
    return result.stdout.decode("ascii").replace("\r\n", "\n")


def report(folder):
    """report.js, of the sample report's own calls."""
    recorder = (ROOT / "tests" / "verify" / "recorder.js").read_text("ascii")
    client = folder / "recorder.js"
    client.write_text(recorder + (ROOT / "samples" / "jscript" / "report.js").read_text("ascii"), "ascii")
    result = subprocess.run([ROOT / "scripts" / "run-client", client, "--no-diagnostics", "--", "report.doc", "FILES"],
                            check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=120)
    lines = [line for line in result.stdout.decode("ascii").splitlines()
             if line.split("\t")[0] not in NOT_PLAYED and not re.match("(Document type|Settings page):", line)]
    texts = ["\n".join(lines[i:i + 8]) for i in range(0, len(lines), 8)]
    for character, escape in (("\\", "\\\\"), ('"', '\\"'), ("\t", "\\t"), ("\n", "\\n")):
        texts = [text.replace(character, escape) for text in texts]
    return ("// The sample report's calls (samples/jscript/report.js), recorded.\nvar kitReport = [\n" +
            ",\n".join(f'"{text}"' for text in texts) + '\n].join("\\n");\n')


def main():
    generator = sys.argv[1]
    (KIT / "files").mkdir(exist_ok=True)
    (KIT / "source" / "sessions.js").write_text(sessions(generator, KIT / "files"), "ascii")
    with tempfile.TemporaryDirectory() as folder:
        (KIT / "source" / "report.js").write_text(report(pathlib.Path(folder)), "ascii")


if __name__ == "__main__":
    main()
