"""Installations of what was built, without an installer."""

import os
import shutil
import subprocess

from support.endtoend import BUILD, PATIENCE


def install(folder, *components):
    """Everything that is shipped, or those components, in that folder and nothing else in it."""
    shutil.rmtree(folder, ignore_errors=True)
    for component in components or [None]:
        command = [os.environ["MIROVEL_CMAKE"], "--install", BUILD, "--prefix", folder]
        subprocess.run(command + (["--component", component] if component else []), check=True,
                       stdout=subprocess.DEVNULL, timeout=PATIENCE)
