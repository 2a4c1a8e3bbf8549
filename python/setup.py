"""Builds the package from a checkout: pip install ./python."""
import pathlib
import sys

from setuptools import setup
from setuptools.command.build_py import build_py

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import generate  # noqa: E402


class BuildWithTable(build_py):
    """Adds what the public header gives."""

    def run(self):
        super().run()
        generate.write(pathlib.Path(self.build_lib, "tolkcolor"))


setup(version=generate.version(), cmdclass={"build_py": BuildWithTable})
