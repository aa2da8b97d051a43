"""Builds corvinel's Python package: the module (libcorvinel.so, built with
CMake, or taken from a build named by CORVINEL_PREBUILT_MODULE) is copied into
the package under its soname, and the private binding corvinel._core links to
it with the run path $ORIGIN, so that the package finds it wherever it is
installed."""

import os
import re
import shutil
import subprocess
from pathlib import Path

from pybind11.setup_helpers import Pybind11Extension, build_ext
from setuptools import setup

ROOT = Path(__file__).resolve().parent


def module_version() -> str:
    """The version on the project() line of CMakeLists.txt."""
    text = (ROOT / "CMakeLists.txt").read_text(encoding="utf-8")
    return re.search(r"project\(corvinel VERSION ([0-9.]+)", text).group(1)


class BuildWithModule(build_ext):
    """Builds (or finds) libcorvinel.so before the binding that links to it."""

    def module_library(self) -> Path:
        prebuilt = os.environ.get("CORVINEL_PREBUILT_MODULE")
        if prebuilt:
            return Path(prebuilt).resolve()
        build_dir = Path(self.build_temp).resolve() / "module"
        configure = ["cmake", "-S", str(ROOT), "-B", str(build_dir), "-DCMAKE_BUILD_TYPE=Release",
                     "-DCORVINEL_BUILD_TESTS=OFF", "-DCORVINEL_BUILD_TOOLS=OFF"]
        if shutil.which("ninja"):
            configure += ["-G", "Ninja"]
        subprocess.check_call(configure)
        subprocess.check_call(["cmake", "--build", str(build_dir), "--target", "corvinel", "-j",
                               os.environ.get("CMAKE_BUILD_PARALLEL_LEVEL", "2")])
        return (build_dir / "libcorvinel.so").resolve()

    def run(self) -> None:
        library = self.module_library()
        soname = "libcorvinel.so." + module_version().split(".")[0]
        staged = Path(self.build_temp).resolve() / "staged"
        staged.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(library, staged / soname)
        for extension in self.extensions:
            extension.extra_objects.append(str(staged / soname))
        super().run()
        # The library goes beside the binding, in the package.
        destinations = [Path(self.build_lib) / "corvinel"]
        if self.inplace:
            destinations.append(ROOT / "python" / "corvinel")
        for destination in destinations:
            destination.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(staged / soname, destination / soname)


core = Pybind11Extension(
    "corvinel._core",
    sources=["python/src/core_module.cpp", "python/src/render_columns.cpp", "python/src/result_memory.cpp"],
    include_dirs=[str(ROOT / "include"), str(ROOT / "python" / "src")],
    cxx_std=20,
    extra_compile_args=["-O2", "-Wall", "-Wextra", "-Werror"],
    extra_link_args=["-Wl,-rpath,$ORIGIN", "-pthread"],
)

setup(version=module_version(), ext_modules=[core], cmdclass={"build_ext": BuildWithModule})
