"""Builds what a script here measures."""
import pathlib
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/release"


def build(*targets):
    """Brings these up to date; ends the script with what the compiler says where that fails."""
    for command in (["cmake", "--preset", "release", "-DQUORVANE_BENCH=ON"],
                    ["cmake", "--build", BUILD, "--target", *targets]):
        built = subprocess.run(command, cwd=ROOT, text=True, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
        if built.returncode:
            sys.exit(built.stdout)
