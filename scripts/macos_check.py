#!/usr/bin/env python3
"""Compiles every source of the macOS build on a machine that is not a Mac, and links corvane-cli as far as link stubs
allow.

    macos_check.py SDK [HEADERS]

SDK contains "Frameworks" and "include" of a macOS SDK; HEADERS a folder "Sparkle" with the update framework's own
headers, to use instead of the declarations in this repository. Checks selectors, signatures, availability and our own
types, with warnings as errors. Objects are kept in build/macos-check, so that the next run compiles only what has
changed.

Exit status: 1 if a source does not compile without warnings, if one is not covered, or if a symbol is missing.
"""
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys

import macos_sources

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "macos-check"
LLVM = re.search(r"^clang_llvm=(\d+)$", (ROOT / "scripts" / "llvm.sh").read_text(), re.M)[1]
CLANG = f"clang++-{LLVM}"
LINKER = f"ld64.lld-{LLVM}"
LIBCXX = f"/usr/lib/llvm-{LLVM}/include/c++/v1"
WARNINGS = ["-Wall", "-Wextra", "-Wpedantic", "-Wconversion", "-Wshadow", "-Werror"]
DEFINITIONS = ['CORVANE_VERSION="0.0.0"', 'CORVANE_BUILD="0"', 'CORVANE_APP_ID="app.corvane.Corvane"',
               'CORVANE_SITE="https://corvane.example/"', "FMT_HEADER_ONLY"]
# Libraries whose headers are the same on every system. The system's include folder must not be searched, so each of
# these is symlinked individually.
LIBRARY_HEADERS = ["tl", "fmt", "openssl", "plist", "utf8proc.h"]
# Folders with the sources of corvane-cli; code that uses Qt is in others.
WITHOUT_QT = re.compile(r"^src/(platform|core(?!/store)|map|cleanup|apps|duplicates|lists|disk|cli)/(?!ui/)")
FRAMEWORKS = ["AppKit", "CoreServices", "Foundation"]
# Libraries that a Mac has, or gets from Homebrew, and whose link stubs may be missing in an SDK folder: stubs are made
# from the exported names of this machine's libraries.
STAND_INS = {"c++": ["libc++.so.1", "libc++abi.so.1"], "plist": ["libplist-2.0.so"], "utf8proc": ["libutf8proc.so"],
             "crypto": ["libcrypto.so"]}
# Functions that compilers call although no header declares them; libSystem has them.
OF_THE_COMPILER = {"___cxa_atexit", "___stack_chk_fail", "___stack_chk_guard", "___udivti3", "___umodti3",
                   "___isPlatformVersionAtLeast", "dyld_stub_binder"}


def complain(text):
    sys.exit(f"macos-check: {text}")


def multiarch():
    return subprocess.run(["gcc", "-print-multiarch"], capture_output=True, text=True, check=True).stdout.strip()


def qt_headers():
    found = subprocess.run(["pkg-config", "--variable=includedir", "Qt6Core"], capture_output=True, text=True)
    folder = pathlib.Path(found.stdout.strip() or f"/usr/include/{multiarch()}/qt6")
    return [folder, *sorted(path for path in folder.glob("Qt*") if path.is_dir())]


def moc():
    for folder in ("/usr/lib/qt6/libexec", f"/usr/lib/{multiarch()}/qt6/libexec"):
        if os.access(f"{folder}/moc", os.X_OK):
            return f"{folder}/moc"
    return shutil.which("moc") or complain("there is no moc")


def link_library_headers():
    """Creates folders that contain only the headers of those libraries."""
    folders = []
    for here in ("/usr/include", f"/usr/include/{multiarch()}"):
        folder = BUILD / "libraries" / str(len(folders))
        shutil.rmtree(folder, ignore_errors=True)
        folder.mkdir(parents=True)
        for name in LIBRARY_HEADERS:
            if os.path.exists(f"{here}/{name}"):
                (folder / name).symlink_to(f"{here}/{name}")
        folders.append(folder)
    return folders


def flags_for(sdk):
    flags = ["-target", "arm64-apple-macos13", "-std=c++20", "-fblocks", "-nostdlibinc", "-nostdinc++", "-O0",
             *WARNINGS, f"-I{ROOT}/src", "-isystem", LIBCXX, "-isystem", f"{sdk}/include",
             "-iframework", f"{sdk}/Frameworks"]
    for folder in [*link_library_headers(), *qt_headers()]:
        flags += ["-isystem", str(folder)]
    return flags + [f"-D{definition}" for definition in DEFINITIONS]


def object_of(source):
    return str(source).replace("/", "-") + ".o"


def write_ninja(sources, headers_with_objects, flags, sparkle):
    """Writes one rule per language; objects are named by their sources' paths, which avoids clashes of file names."""
    launcher = ["ccache"] if shutil.which("ccache") else []
    compiler = shlex.join([*launcher, CLANG, *flags])
    lines = ["ninja_required_version = 1.10",
             "rule cpp", f"  command = {compiler} -MMD -MF $out.d -c $in -o $out", "  depfile = $out.d", "  deps = gcc",
             "  description = $in",
             "rule mm", f"  command = {compiler} -fobjc-arc $more -MMD -MF $out.d -c $in -o $out", "  depfile = $out.d",
             "  deps = gcc", "  description = $in",
             "rule moc", f"  command = {moc()} -DQ_OS_MACOS -I{ROOT}/src $in -o $out", "  description = moc $in"]
    for source in sources:
        lines.append(f"build {object_of(source)}: {source.suffix[1:]} {ROOT / source}")
        if "<Sparkle/" in (ROOT / source).read_text():
            lines.append(f"  more = -isystem {sparkle}")
    for header in headers_with_objects:
        made = "moc-" + str(header).replace("/", "-") + ".cpp"
        lines += [f"build {made}: moc {ROOT / header}", f"build {made}.o: cpp {made}"]
    (BUILD / "build.ninja").write_text("\n".join(lines) + "\n")


def compile_all(sources):
    done = subprocess.run(["ninja", "-C", str(BUILD), "-k", "0"], cwd=ROOT).returncode == 0
    covered = [source for source in sources if (BUILD / object_of(source)).is_file()]
    print(f"macos-check: {len(covered)} of {len(sources)} sources compile for arm64 macOS without a warning")
    return done and len(covered) == len(sources)


def exported(library):
    """The names exported by one of this machine's libraries, as mangled on a Mac."""
    for folder in (f"/usr/lib/{multiarch()}", f"/usr/lib/llvm-{LLVM}/lib", "/usr/lib"):
        if os.path.exists(f"{folder}/{library}"):
            listing = subprocess.run(["nm", "-D", "--defined-only", "--format=posix", f"{folder}/{library}"],
                                     capture_output=True, text=True, check=True).stdout
            return {"_" + line.split()[0].split("@")[0] for line in listing.splitlines()}
    complain(f"there is no {library} here, whose names the link needs")


def declared(names, sdk):
    """The C names that a header of the SDK declares. A "$" starts the suffix of a variant."""
    words = {name[1:].split("$")[0]: name for name in names if re.fullmatch(r"_\w+(\$DARWIN_EXTSN)?", name)}
    found = set()
    for header in (sdk / "include").rglob("*.h"):
        if "c++" not in header.parts:
            text = header.read_text(errors="replace")
            found |= {name for word, name in words.items() if word in text and re.search(rf"\b{word}\b", text)}
    return found


def write_stub(name, symbols):
    """Writes a text-based link stub (version 4) of a library with those symbols."""
    listed = ", ".join(f"'{symbol}'" for symbol in sorted(symbols))
    (BUILD / f"lib{name}.tbd").write_text(
        f"--- !tapi-tbd\ntbd-version: 4\ntargets: [ arm64-macos ]\ninstall-name: '/usr/lib/lib{name}.dylib'\n"
        f"exports:\n  - targets: [ arm64-macos ]\n    symbols: [ {listed} ]\n...\n")


def make_root(sdk):
    """Creates a root folder with the SDK's link stubs, each at its install path."""
    folder = BUILD / "root"
    shutil.rmtree(folder, ignore_errors=True)
    for stub in sorted((sdk / "Frameworks").rglob("*.tbd")) + sorted((sdk / "lib").glob("*.tbd")):
        name = re.search(r"^install-name:\s*'?([^'\n]+)'?$", stub.read_text(), re.M)
        if name:
            path = folder / (name[1].lstrip("/").removesuffix(".dylib") + ".tbd")
            path.parent.mkdir(parents=True, exist_ok=True)
            if not path.is_symlink():
                path.symlink_to(stub)
    return folder


def link_command(sdk, sources, libraries):
    objects = [object_of(source) for source in sources if WITHOUT_QT.match(str(source))]
    (BUILD / "objects.txt").write_text("\n".join(objects) + "\n")
    frameworks = [word for name in FRAMEWORKS for word in ("-framework", name)]
    return [LINKER, "-arch", "arm64", "-platform_version", "macos", "13.0", "13.0", "--error-limit=0",
            "-syslibroot", str(BUILD / "root"), "-F", f"{sdk}/Frameworks", "-L", f"{sdk}/lib", "-L", str(BUILD), "-filelist", "objects.txt", *frameworks,
            "-lobjc", *[f"-l{name}" for name in libraries], "-o", "corvane-cli"]


def link(sdk, sources):
    """Links corvane-cli. Returns whether no symbol is missing."""
    stubs = [f"{sdk}/Frameworks/{name}.framework/{name}.tbd" for name in FRAMEWORKS] + [f"{sdk}/lib/libobjc.tbd"]
    if not all(os.path.exists(stub) for stub in stubs):
        print("macos-check: the SDK folder holds no link stubs, so nothing is linked")
        return True
    make_root(sdk)
    for name in [*STAND_INS, "System"]:
        (BUILD / f"lib{name}.tbd").unlink(missing_ok=True)
    of_sdk = [name for name in ("System", "c++") if os.path.exists(f"{sdk}/lib/lib{name}.tbd")]
    first = subprocess.run(link_command(sdk, sources, of_sdk), cwd=BUILD, capture_output=True, text=True)
    wanted = set(re.findall(r"undefined symbol: (\S+)", first.stderr))
    libraries = list(of_sdk)
    missing = set(wanted)
    for name, files in STAND_INS.items():
        if name not in of_sdk:
            symbols = missing & set().union(*map(exported, files))
            missing -= symbols
            write_stub(name, symbols)
            libraries.append(name)
            print(f"macos-check: lib{name}: {len(symbols)} symbols, which this machine's library exports")
    if "System" not in of_sdk:
        symbols = declared(missing, sdk) | (missing & OF_THE_COMPILER)
        missing -= symbols
        write_stub("System", symbols)
        libraries.append("System")
        print(f"macos-check: libSystem: {len(symbols)} symbols, which the SDK's headers declare")
    for symbol in sorted(missing):
        print(f"macos-check: missing: {symbol}", file=sys.stderr)
    second = subprocess.run(link_command(sdk, sources, libraries), cwd=BUILD, capture_output=True, text=True)
    if second.returncode != 0:
        print(second.stderr, file=sys.stderr)
        return False
    size = (BUILD / "corvane-cli").stat().st_size
    print(f"macos-check: corvane-cli for arm64 macOS is linked ({size} bytes) against {', '.join(FRAMEWORKS)} and "
          f"libobjc of the SDK" + ("" if "System" in of_sdk else ", the rest against the names above"))
    return not missing


def main():
    if len(sys.argv) not in (2, 3):
        complain("say where the macOS SDK is (a folder with Frameworks and include)")
    sdk = pathlib.Path(sys.argv[1]).resolve()
    if not (sdk / "Frameworks").is_dir() or not (sdk / "include").is_dir():
        complain(f"{sdk} lacks a Frameworks or an include folder")
    sparkle = pathlib.Path(sys.argv[2]).resolve() if len(sys.argv) == 3 else ROOT / "scripts" / "macos"
    if not (sparkle / "Sparkle").is_dir():
        complain(f"{sparkle} lacks a Sparkle folder")

    named = macos_sources.sources_of(ROOT)
    left_out = macos_sources.missing_from(named, ROOT)
    for source in left_out:
        print(f"macos-check: not covered: no CMakeLists.txt names {source} for a Mac", file=sys.stderr)
    sources = sorted(source for source in named if source.parts[0] == "src")
    headers = sorted(header.relative_to(ROOT) for header in (ROOT / "src").rglob("macos/*.h")
                     if re.search(r"^\s*Q_OBJECT$", header.read_text(), re.M))
    BUILD.mkdir(parents=True, exist_ok=True)
    for stale in BUILD.glob("*.o"):
        if (stale.stem not in {object_of(source)[:-2] for source in sources} and not stale.name.startswith("moc-")):
            stale.unlink()
    write_ninja(sources, headers, flags_for(sdk), sparkle)
    good = compile_all(sources)
    good = good and link(sdk, sources)
    sys.exit(0 if good and not left_out else 1)


if __name__ == "__main__":
    main()
