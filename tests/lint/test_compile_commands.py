"""What is compiled together is shown to the checks file by file."""

import json
import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "scripts" / "lib"))

import compile_commands


class CompileCommands(unittest.TestCase):
    def test_files_compiled_together_stand_alone(self):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            together = folder / "a.dir" / "Unity" / "unity_0_cxx.cxx"
            together.parent.mkdir(parents=True)
            together.write_text('/* generated */\n\n#include "/x/One.cpp"\n\n#include "/x/Two.cpp"\n')
            entries = folder / "compile_commands.json"
            entries.write_text(json.dumps([
                {"directory": "/b", "file": "/x/Three.cpp", "command": "c++ -O2 -o Three.o -c /x/Three.cpp"},
                {"directory": "/b", "file": str(together), "command": f"c++ -O0 -o together.o -c {together}"}]))
            self.assertEqual(compile_commands.alone(entries), [
                {"directory": "/b", "file": "/x/Three.cpp", "command": "c++ -O2 -o Three.o -c /x/Three.cpp"},
                {"directory": "/b", "file": "/x/One.cpp", "command": "c++ -O0 -o together.o -c /x/One.cpp"},
                {"directory": "/b", "file": "/x/Two.cpp", "command": "c++ -O0 -o together.o -c /x/Two.cpp"}])


if __name__ == "__main__":
    unittest.main()
