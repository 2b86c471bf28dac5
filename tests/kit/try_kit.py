#!/usr/bin/env python3
"""Tries the kit as its users would, from the packages of a build, in a folder that has nothing else of the project.

Packs and unpacks, runs the programs, compiles all public headers, builds the examples, does what the pages for authors say,
and removes the packages again. Stops at the first thing that isn't as it should be.
"""
import argparse
import os
import pathlib
import re
import shutil
import subprocess
import sys
import time
import zipfile

PROGRAMS = ["icons", "lumohost", "vex"]
PAGES = ("write-a-plugin.md", "write-a-host.md")
ICON_COLOUR = bytes.fromhex("f2a900")  # of the drawing that a page adds to its plug-in
EXAMPLES = {"soft_glow": ("filter", "glow.png"), "contact_sheet_export": ("export", "sheet.ppm")}


class Fault(Exception):
    """What isn't as it should be."""


class Kit:
    def __init__(self, options):
        self.options = options
        self.windows = options.wine is not None
        self.work = options.build / "kit"
        shutil.rmtree(self.work, ignore_errors=True)
        self.root = self.work / "root"
        self.root.mkdir(parents=True)
        self.prefix = self.root if self.windows else self.root / "usr"
        self.picture = self.work / "harbour.png"
        self.environment = dict(os.environ, CMAKE_GENERATOR="Ninja", CMAKE_PREFIX_PATH=str(self.prefix), KIT=self.told(self.prefix))
        self.environment.pop("DISPLAY", None)
        if not self.windows:  # there the toolchain file of the kit names them
            self.environment.update(CC=options.c_compiler, CXX=options.compiler)
        self.environment["XDG_CONFIG_HOME"] = str(self.work / "settings")
        self.environment["ASAN_OPTIONS"] = "detect_leaks=0"  # of libraries that lumohost unloads

    def told(self, path):
        """As programs of the kit are told of a file; Wine has this system's files on Z:."""
        return f"Z:{path}" if self.windows and isinstance(path, pathlib.Path) else str(path)

    def run(self, *command, folder=None, status=0):
        """Its output. A status other than the wanted one is a fault."""
        done = subprocess.run([str(part) for part in command], cwd=folder or self.work, env=self.environment,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, errors="replace", check=False)
        if done.returncode != status:
            raise Fault(f"{' '.join(map(str, command))}\nended with {done.returncode} instead of {status}:\n{done.stdout}")
        return done.stdout

    def tool(self, name, *arguments, status=0):
        return self.run(self.work / "tools" / name, *map(self.told, arguments), status=status)

    # ------------------------------------------------------------------------------------------------------- What is tried

    def pack(self):
        self.run("cpack", "--config", self.options.build / "CPackConfig.cmake", "-B", self.work / "packages")
        self.packages = sorted((self.work / "packages").glob("*.zip" if self.windows else "*.deb"))
        if len(self.packages) != 2:
            raise Fault(f"there should be two packages: {self.packages}")

    def dpkg(self, *arguments):
        self.run("dpkg", f"--root={self.root}", "--force-depends", "--force-not-root", "--force-bad-path",
                 "--force-script-chrootless", "--log=/dev/null",
                 *arguments)

    def unpack(self):
        if self.windows:
            for package in self.packages:
                with zipfile.ZipFile(package) as archive:
                    archive.extractall(self.root)
        else:
            (self.root / "var/lib/dpkg/info").mkdir(parents=True)
            (self.root / "var/lib/dpkg/updates").mkdir()
            (self.root / "var/lib/dpkg/status").touch()
            self.dpkg("--install", *self.packages)
        self.put_tools()

    def put_tools(self):
        """Programs under their plain names; those for Windows run under Wine."""
        tools = self.work / "tools"
        tools.mkdir()
        for program in (self.prefix / "bin").iterdir():
            if self.windows and program.suffix == ".exe":
                tool = tools / program.stem
                tool.write_text(f'#!/bin/sh\nexec "{self.options.wine}" "{program}" "$@"\n')
                tool.chmod(0o755)
            elif not self.windows:
                (tools / program.name).symlink_to(program)
        self.environment["PATH"] = f"{tools}:{self.environment['PATH']}"
        if self.windows:
            # Of its own, where no window of another test takes the keyboard away.
            self.environment["SIDECAR_WINEPREFIX"] = str(self.options.build / "wine-kit")
            self.environment["CMAKE_TOOLCHAIN_FILE"] = str(self.prefix / "share/sidecar/mingw-w64.cmake")

    def files_name_no_folder_of_this_build(self):
        if self.options.sanitized:
            return
        folders = [str(folder).encode() for folder in (self.options.source, self.options.build)]
        for file in filter(pathlib.Path.is_file, self.prefix.rglob("*")):
            content = file.read_bytes()
            for folder in folders:
                if folder in content:
                    place = content.index(folder)
                    raise Fault(f"{file} names {content[place:place + 120]}")

    def programs_run(self):
        found = sorted(tool.name for tool in (self.work / "tools").iterdir())
        if found != PROGRAMS:
            raise Fault(f"the packages have the programs {found} instead of {PROGRAMS}")
        for name in PROGRAMS:
            told = self.tool(name, "--version")
            if self.options.version not in told:
                raise Fault(f"{name} --version tells {told} instead of {self.options.version}")
            told = self.tool(name, "--help")
            if "Usage: " + name not in told:
                raise Fault(f"{name} --help tells {told}")
        self.tool("lumohost", "open", self.prefix / "share/sidecar/samples/harbour.img", "-o", self.picture)
        self.tool("vex", "check", *(self.prefix / "share/sidecar/examples/layouts").rglob("*.vex"))
        self.tool("icons", self.work / "icons.ppm")

    def links_of_pages_lead_somewhere(self):
        for page in (self.prefix / "share/doc/sidecar").rglob("*.md"):
            for link in re.findall(r"\]\(([^)#:]+)\)", page.read_text()):
                if not (page.parent / link).exists():
                    raise Fault(f"{page} leads to {link}, which isn't there")

    def headers_compile_without_the_sources(self):
        include = self.prefix / "include"
        roots = {"sidecar": include / "sidecar", "lumograph": include}
        lines = [f'#include "{header.relative_to(root)}"\n' for folder, root in roots.items()
                 for header in sorted((include / folder).rglob("*.h"))]
        source = self.work / "all_headers.cpp"
        source.write_text("".join(lines))
        self.run(self.options.compiler, "-std=c++20", "-Wall", "-Wextra", "-Werror", "-fsyntax-only", "-I", include, "-I",
                 include / "sidecar", source)

    def build(self, source, name):
        folder = self.work / name
        self.run("cmake", "-S", source, "-B", folder)
        self.run("cmake", "--build", folder)
        return folder / "bin" / f"{name}{'.dll' if self.windows else '.so'}"

    def examples_build_and_run(self):
        for name, (command, output) in EXAMPLES.items():
            module = self.build(self.prefix / "share/sidecar/examples" / name, name)
            self.tool("lumohost", command, self.picture, "--module", module, "-o", self.work / output)

    def a_kit_of_another_major_version_is_refused(self):
        module = next((self.work / "contact_sheet_export/bin").glob("contact_sheet_export.*"))
        content = module.read_bytes()
        ours = self.options.version
        major = ours.split(".")[0]
        for version, status in ((f"{major}.9.9", 0), (f"{int(major) - 1}.0.0", 1)):
            old = module.with_name("old" + module.suffix)
            old.write_bytes(content.replace(ours.encode(), version.encode()))
            told = self.tool("lumohost", "export", self.picture, "--module", old, "-o", self.work / "old.ppm", status=status)
            if status and f"version {version} of the kit" not in told:
                raise Fault(f"a module of kit {version} is refused with: {told}")

    def pages_do_what_they_say(self):
        here = pathlib.Path(__file__).parent
        for page in PAGES:
            folder = self.work / pathlib.Path(page).stem
            folder.mkdir()
            script = self.run(sys.executable, here / "page_script.py", self.prefix / "share/doc/sidecar" / page)
            if self.windows:
                script = script.replace("lib/sidecar/sidecar.so", "bin/sidecar.dll").replace(".so", ".dll")
                script = script.replace("build/tiny_host ", f"{self.options.wine} build/tiny_host.exe ")
            (folder / "script.sh").write_text(script)
            self.run("sh", folder / "script.sh", folder=folder)

    def a_plugins_own_icon_is_shown(self):
        module = next((self.work / "write-a-plugin/Relief/build/bin").glob("relief.*"))
        photograph = self.work / "relief.ppm"
        self.tool("lumohost", "filter", self.picture, "--module", module, "--photograph", photograph,
                  "-o", self.work / "relief.png")
        if 4 * ICON_COLOUR not in photograph.read_bytes():
            raise Fault(f"{module} shows no pixels of its icon")

    def nothing_stays_behind(self):
        if self.windows:
            return
        self.dpkg("--purge", "sidecar-dev", "sidecar")
        left = [path for path in self.prefix.rglob("*") if path.is_file()] if self.prefix.exists() else []
        if left:
            raise Fault(f"the packages leave behind {left}")


STEPS = (Kit.pack, Kit.unpack, Kit.files_name_no_folder_of_this_build, Kit.programs_run,
         Kit.links_of_pages_lead_somewhere, Kit.headers_compile_without_the_sources, Kit.examples_build_and_run,
         Kit.a_kit_of_another_major_version_is_refused, Kit.pages_do_what_they_say, Kit.a_plugins_own_icon_is_shown,
         Kit.nothing_stays_behind)


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--build", type=pathlib.Path, required=True, help="the build folder")
    parser.add_argument("--source", type=pathlib.Path, required=True, help="the source tree")
    parser.add_argument("--version", required=True, help="the version that everything should tell")
    parser.add_argument("--compiler", required=True, help="of C++, for the system that was built for")
    parser.add_argument("--c-compiler", required=True, help="of C")
    parser.add_argument("--wine", type=pathlib.Path, help="what runs programs for Windows, if they are that")
    parser.add_argument("--sanitized", action="store_true", help="the build names its sources in all libraries")
    kit = Kit(parser.parse_args())
    for step in STEPS:
        started = time.monotonic()
        try:
            step(kit)
        except Fault as fault:
            sys.exit(f"{step.__name__}: {fault}")
        print(f"{time.monotonic() - started:6.1f} s  {step.__name__}", flush=True)
    shutil.rmtree(kit.work)


if __name__ == "__main__":
    main()
