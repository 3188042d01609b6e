"""The classes in a prefix that knows nothing of them: found by the manifest beside the DLL, in it, or by the host's own."""

import os
import pathlib
import re
import shutil

from support.endtoend import EndToEndTest, windows
from support.installation import install

CLIENT = pathlib.Path(os.environ["MIROVEL_UNREGISTERED"])
VERSION = os.environ["MIROVEL_VERSION"]

HOST_MANIFEST = """<?xml version="1.0" encoding="UTF-8" standalone="yes"?>
<assembly xmlns="urn:schemas-microsoft-com:asm.v1" manifestVersion="1.0">
  <assemblyIdentity type="win32" name="host" version="1.0.0.0" processorArchitecture="amd64"/>
  <dependency>
    <dependentAssembly>
      <assemblyIdentity type="win32" name="mirovelcom" version="{}.0" processorArchitecture="amd64"/>
    </dependentAssembly>
  </dependency>
</assembly>
"""

EVERYTHING = ["Mirovel.Mirovel -> ok", "Mirovel.Mirovel.2.1.0 -> ok", "MirovelComPage.MirovelComPage -> ok",
              "MirovelComPage.MirovelComPage.2.1.0 -> ok", "type library -> ok", "getDocType -> Word",
              "getDocType by Invoke -> Word", "getDocType from another apartment -> Word"]
UNKNOWN = ["Mirovel.Mirovel -> 0x800401f3", "Mirovel.Mirovel.2.1.0 -> 0x800401f3",
           "MirovelComPage.MirovelComPage -> 0x800401f3", "MirovelComPage.MirovelComPage.2.1.0 -> 0x800401f3",
           "type library -> 0x8002801d"]


class Unregistered(EndToEndTest):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.installation = cls.folder / "an installation"
        install(cls.installation, "runtime")
        cls.bin = cls.installation / "bin"

    def run_unregistered(self, client, *arguments, **options):
        # A fresh prefix each: when an interface travels, Wine registers the type library that the manifest led it to.
        prefix = self.folder / self._testMethodName
        outcome = self.run_client(client, *arguments, registration=False, prefix=prefix, **options)
        keys = re.findall(r"^\[(.*)\]", (prefix / "system.reg").read_text("utf-8", "replace"), re.MULTILINE)
        ours = [key for key in keys if re.search("mirovel|5c2e7a1", key, re.IGNORECASE)]
        self.assertEqual([], [key for key in ours if not re.search(r"\\\\(Typelib|Interface)\\\\", key)])
        return outcome

    def host(self, *files):
        """A copy of the client in a folder of its own, with those files beside it."""
        folder = self.folder / "host"
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir()
        for file in (CLIENT, *files):
            shutil.copy(file, folder)
        (folder / f"{CLIENT.name}.manifest").write_text(HOST_MANIFEST.format(VERSION))
        return folder / CLIENT.name

    def test_without_a_manifest_there_is_no_class(self):
        self.assertEqual(UNKNOWN, self.run_unregistered(CLIENT).output)

    def test_the_manifest_beside_the_dll(self):
        manifest = windows(self.bin / "mirovelcom.manifest")
        self.assertEqual(EVERYTHING, self.run_unregistered(CLIENT, "file", manifest).output)

    def test_the_manifest_in_the_dll(self):
        library = windows(self.bin / "mirovelcom.dll")
        self.assertEqual(EVERYTHING, self.run_unregistered(CLIENT, "module", library).output)

    def test_a_host_that_names_the_assembly_in_its_own_manifest(self):
        host = self.host(self.bin / "mirovelcom.dll", self.bin / "mirovelcom.manifest")
        self.assertEqual(EVERYTHING, self.run_unregistered(host).output)

    def test_such_a_host_needs_the_dll_alone(self):
        self.assertEqual(EVERYTHING, self.run_unregistered(self.host(self.bin / "mirovelcom.dll")).output)

    def test_such_a_host_does_not_run_without_the_assembly(self):
        outcome = self.run_unregistered(self.host(), status=None)
        self.assertNotIn("Mirovel.Mirovel -> ok", outcome.output)
