"""Builds the package. In a clone, libQX_Messages is built along and lies inside; elsewhere the installed one is taken."""
import glob
import os
import pathlib
import shutil
import subprocess
import sys
import sysconfig

from setuptools import Extension, setup
from setuptools.command.build_ext import build_ext

try:
    from wheel.bdist_wheel import bdist_wheel
except ImportError:
    from setuptools.command.bdist_wheel import bdist_wheel

here = pathlib.Path(__file__).resolve().parent
clone = here.parent
is_clone = (clone / "messages/CMakeLists.txt").is_file()


def version():
    """Of the library; a source distribution has kept it."""
    kept = here / "PKG-INFO"
    text = (kept if not is_clone else clone / "CMakeLists.txt").read_text(encoding="utf-8")
    words = text.split("\nVersion: " if not is_clone else "project(QX_Encoding VERSION ", 1)[1]
    return words.split()[0]


def told_by_pkg_config(option):
    return subprocess.run(["pkg-config", option, "QX_Messages"], check=True, stdout=subprocess.PIPE, text=True).stdout.split()


class Build(build_ext):
    """In a clone CMake builds the module as for the tests, beside the library."""

    def build_extension(self, extension):
        if not is_clone:
            extension.extra_compile_args = ["-std=c++20", *told_by_pkg_config("--cflags")]
            extension.extra_link_args = told_by_pkg_config("--libs")
            super().build_extension(extension)
            return
        generator = "Ninja" if shutil.which("ninja") else "Unix Makefiles"
        made = pathlib.Path(self.build_temp).resolve() / generator.replace(" ", "-")  # CMake keeps a folder for one
        subprocess.run(["cmake", "-S", clone, "-B", made, "-G", generator, "-DCMAKE_BUILD_TYPE=Release", "-DQX_BUILD_TESTS=OFF",
                        "-DQX_BUILD_TOOLS=OFF", "-DQX_BUILD_PYTHON=ON", "-DCMAKE_BUILD_WITH_INSTALL_RPATH=ON",
                        f"-DQX_PYTHON={sys.executable}", f"-DQX_PYTHON_INCLUDE={sysconfig.get_path('include')}"], check=True)
        subprocess.run(["cmake", "--build", made, "--target", "qxpdu_core", "--parallel", str(os.cpu_count() or 1)], check=True)
        folder = pathlib.Path(self.get_ext_fullpath(extension.name)).parent
        folder.mkdir(parents=True, exist_ok=True)
        shutil.copy(made / "python/qxpdu/_core.abi3.so", folder)
        shutil.copy(made / "messages" / f"libQX_Messages.so.{version().split('.')[0]}", folder)


class Wheel(bdist_wheel):
    """One for 3.11 and all later versions."""

    def finalize_options(self):
        super().finalize_options()
        self.py_limited_api = "cp311"


setup(version=version(),
      packages=["qxpdu"],
      package_data={"qxpdu": ["py.typed", "*.pyi"]},
      ext_modules=[Extension("qxpdu._core", sorted(glob.glob("core/*.cpp", root_dir=here)), depends=["core/Core.h"], language="c++",
                             define_macros=[("Py_LIMITED_API", "0x030B0000")], py_limited_api=True)],
      cmdclass={"build_ext": Build, "bdist_wheel": Wheel})
