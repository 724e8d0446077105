#!/usr/bin/env python3
"""Makes the tarball: an installation with the libraries that distributions have in other versions.

    tarball.py INSTALLED FILE VERSION

INSTALLED is what cmake --install has made, whose last folder is the tarball's top folder; libraries,
licences, a README and the list of files are added to it. Reads the Debian packages of this system.
"""

import os
import re
import shutil
import subprocess
import sys
import tarfile
from pathlib import Path

ID = "com.quillfen.Panewright"
# Names every file of the folder, itself too, so that a program can tell such a folder and remove it.
FILE_LIST = "panewright-files.txt"
# As Qt's folder of plugins has them. No platform theme: that of GTK would load the system's GTK.
PLUGINS = [
    "platforms/libqxcb.so",
    "imageformats/libqsvg.so",
    "iconengines/libqsvgicon.so",
    "platforminputcontexts/libcomposeplatforminputcontextplugin.so",
    "platforminputcontexts/libibusplatforminputcontextplugin.so",
]
TRANSLATIONS = ["qtbase_de.qm"]
# What stays the system's, with all that these need themselves. Other libraries of the system use them
# in the same process, and would break on an older one that was carried along: the graphics card's
# driver needs its C++ runtime, fontconfig its freetype, harfbuzz its glib. All of them keep their
# interfaces, so that a newer one does.
OF_THE_SYSTEM = re.compile(
    r"(ld-linux.*|lib(c|m|dl|rt|pthread|resolv|gcc_s|stdc\+\+"  # the C and C++ runtimes
    r"|X11|X11-xcb|xcb|ICE|SM|EGL|GL|GLX|OpenGL"  # the X server's and the graphics card's
    r"|fontconfig|freetype|harfbuzz|png16|z|zstd"  # fonts and what these read
    r"|glib-2\.0|dbus-1))\.so\..*")  # the main loop, the bus


def output(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


def needed(binary):
    return re.findall(r"^ +NEEDED +(\S+)$", output("objdump", "-p", binary), re.MULTILINE)


def found_by_loader(binary):
    """The paths of all libraries that the binary loads at its start, by soname."""
    return dict(re.findall(r"^\t(\S+) => (/\S+)", output("ldd", binary), re.MULTILINE))


def carried_libraries(binaries):
    """Paths, by soname, of the libraries to carry for these binaries; what the system's libraries
    need is not followed."""
    carried = {}
    left = list(binaries)
    while left:
        binary = left.pop()
        paths = found_by_loader(binary)
        for soname in needed(binary):
            if soname not in carried and not OF_THE_SYSTEM.fullmatch(soname):
                carried[soname] = Path(paths[soname])
                left.append(paths[soname])
    return carried


def package_of(path):
    """The Debian package that has the file, and its version; its source, and the source's version."""
    # A merged /usr: the package may know the file by its older name.
    path = os.path.realpath(path)
    older = path.removeprefix("/usr")
    for name in (path, older):
        found = subprocess.run(["dpkg-query", "-S", name], stdout=subprocess.PIPE,
                               stderr=subprocess.DEVNULL, text=True)
        if found.returncode == 0:
            package = found.stdout.split(": ")[0]
            fields = "${Package} ${Version} ${source:Package} ${source:Version}"
            return output("dpkg-query", "-W", "-f", fields, package).split()
    sys.exit(f"no Debian package has {path}, so its licence is not known")


def copy(source, target):
    target.parent.mkdir(parents=True, exist_ok=True)
    shutil.copyfile(source, target)
    return target


def find_libraries_in(binary, folder):
    """As RUNPATH: of this binary alone, and nothing that a child would inherit."""
    binary.chmod(0o755)
    origin = Path("$ORIGIN") / os.path.relpath(folder, binary.parent)
    subprocess.run(["patchelf", "--set-rpath", str(origin), binary], check=True)


def carry(top):
    """Copies plugins, libraries and translations, and answers where each came from, by its path
    here."""
    programs = [top / "bin/panewright", top / "libexec/panewright/panewright",
                top / "libexec/panewright/panewright-crash-report"]
    qt = {key: Path(output("qtpaths6", "--query", "QT_INSTALL_" + key.upper()).strip())
          for key in ("plugins", "translations")}
    origins = {}
    for plugin in PLUGINS:
        origins[copy(qt["plugins"] / plugin, top / "lib/qt6/plugins" / plugin)] = (
            qt["plugins"] / plugin)
    for soname, path in carried_libraries(programs + list(origins)).items():
        origins[copy(path, top / "lib" / soname)] = path
    carried = os.listdir(top / "lib")
    for binary in programs + list(origins):
        if set(needed(binary)).intersection(carried):
            find_libraries_in(binary, top / "lib")
    for name in TRANSLATIONS:
        origins[copy(qt["translations"] / name, top / "share/qt6/translations" / name)] = (
            qt["translations"] / name)
    # Beside the program, where Qt looks; also not by the environment.
    (top / "libexec/panewright/qt.conf").write_text(
        "[Paths]\nPrefix=../..\nPlugins=lib/qt6/plugins\nTranslations=share/qt6/translations\n")
    return origins


def add_licences(top, origins):
    """The copyright file of each package, the licences that these refer to, and where the sources
    are."""
    lines = ["File, Debian package and its version, source package and its version", ""]
    referred = set()
    for path, origin in sorted(origins.items()):
        package, version, source, source_version = package_of(origin)
        lines.append(f"{path.relative_to(top)}: {package} {version}, {source} {source_version}")
        copyright_file = copy(f"/usr/share/doc/{package}/copyright",
                              top / "share/doc" / package / "copyright")
        referred.update(re.findall(r"/usr/share/common-licenses/([\w.+-]*\w)",
                                   copyright_file.read_text(errors="replace")))
    for name in sorted(referred):
        copy(f"/usr/share/common-licenses/{name}", top / "share/doc/common-licenses" / name)
    (top / "share/doc/panewright/libraries.txt").write_text("\n".join(lines) + "\n")


def needed_version(binaries, prefix):
    """The newest version of a symbol, such as GLIBC_2.36, that the binaries need."""
    pattern = re.compile(r"\b%s_(\d[\d.]*)" % prefix)
    versions = {version for binary in binaries
                for version in pattern.findall(output("objdump", "-p", binary))}
    return max(versions, key=lambda version: [int(part) for part in version.split(".")])


def make_templates(top):
    """The desktop entry and the bus's service file want an absolute path, which nobody knows here."""
    entry = top / "share/applications" / f"{ID}.desktop"
    text = entry.read_text().replace("Exec=panewright", 'Exec="@FOLDER@/bin/panewright"')
    text = text.replace('TryExec="@FOLDER@/bin/panewright"', "TryExec=@FOLDER@/bin/panewright")
    entry.with_suffix(".desktop.in").write_text(text)
    entry.unlink()
    service = top / "share/dbus-1/services" / f"{ID}.service"
    command = '"@FOLDER@/bin/panewright"'
    service.with_suffix(".service.in").write_text(
        re.sub(r'^Exec="[^"]*"', f"Exec={command}", service.read_text(), flags=re.MULTILINE))
    service.unlink()


def write_readme(top, version, binaries):
    template = Path(__file__).with_name("tarball-readme.in").read_text()
    values = {"version": version, "machine": os.uname().machine, "file_list": FILE_LIST,
              "glibc": needed_version(binaries, "GLIBC"),
              "libstdcxx": needed_version(binaries, "GLIBCXX")}
    (top / "README").write_text(re.sub("@(\\w+)@", lambda at: values.get(at[1], at[0]), template))


def list_files(top):
    """One path a line, from the top folder, sorted by bytes; folders are not named."""
    (top / FILE_LIST).touch()
    files = sorted(str(path.relative_to(top)) for path in top.rglob("*") if not path.is_dir())
    (top / FILE_LIST).write_text("".join(name + "\n" for name in files))


def pack(top, file):
    """The same content makes the same file: sorted, of root, at one time."""
    time = int(os.environ["SOURCE_DATE_EPOCH"])

    def plain(member):
        member.uid = member.gid = 0
        member.uname = member.gname = "root"
        member.mtime = time
        member.mode = 0o755 if member.isdir() or member.mode & 0o100 else 0o644
        return member

    with tarfile.open(file, "w:xz", format=tarfile.GNU_FORMAT) as archive:
        for path in sorted([top, *top.rglob("*")]):
            archive.add(path, path.relative_to(top.parent), recursive=False, filter=plain)


def main():
    top, file, version = Path(sys.argv[1]).resolve(), sys.argv[2], sys.argv[3]
    origins = carry(top)
    add_licences(top, origins)
    make_templates(top)
    binaries = [path for path in top.rglob("*")
                if path.is_file() and path.open("rb").read(4) == b"\x7fELF"]
    write_readme(top, version, binaries)
    list_files(top)
    pack(top, file)


main()
