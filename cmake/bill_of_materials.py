#!/usr/bin/env python3
"""Writes what is linked into a program or a shared object as a bill of materials, CycloneDX 1.5 in JSON.

The archives of which something was taken, the start files and the shared objects come from the map of GNU ld, and are
held against what the program needs. Headers that bring code of their own are named by --header. The package system says
their versions, where there is one. A file that has no row in COMPONENTS ends the script with 1: nothing is linked
unnoticed. The same build gives the same bytes; SOURCE_DATE_EPOCH, where it is set, is the time of the bill."""

import argparse
import datetime
import hashlib
import json
import os
import pathlib
import re
import subprocess
import sys
import urllib.parse
import uuid

# Names of files, their component, and its licence as an SPDX expression.
COMPONENTS = (
    (r"libtinyxml\.(a|so.*)", "TinyXML", "Zlib"),
    (r"liberfa\.(a|so.*)", "ERFA", "BSD-3-Clause"),
    (r"libxml2\.(a|so.*)", "libxml2", "MIT"),
    (r"CLI\.hpp", "CLI11", "BSD-3-Clause"),
    (r"json\.hpp", "JSON for Modern C++", "MIT"),
    (r"xxhash\.h", "xxHash", "BSD-2-Clause"),
    (r"pybind11\.h", "pybind11", "BSD-3-Clause"),
    (r"crt(begin|end)[ST]?\.o|lib(stdc\+\+|gcc|gcc_eh|gcc_s)\.(a|so.*)", "GCC runtime libraries",
     "GPL-3.0-or-later WITH GCC-exception-3.1"),
    (r"[rS]?crt[1in]\.o|lib(c|c_nonshared|m|m-[0-9.]+|mvec|pthread|dl|rt)\.(a|so.*)|ld-linux.*\.so.*",
     "GNU C Library", "LGPL-2.1-or-later"),
)


def printed_by(*command):
    return subprocess.run(command, check=True, stdout=subprocess.PIPE, text=True).stdout


# What is linked.


def files_of_map(path):
    """The archives of which a member was taken, and all files that were loaded, as the map of the linker names them."""
    archives, loaded = set(), set()
    with open(path, encoding="utf-8", errors="replace") as lines:
        for line in lines:
            taken = re.match(r"(\S+\.a)\(", line)
            if taken:
                archives.add(taken[1])
            elif line.startswith("LOAD "):
                loaded.add(line[5:].rstrip("\n"))
    return archives, loaded


def needed_by(program):
    """The names of the shared objects that are loaded with a program."""
    return re.findall(r"\(NEEDED\).*\[(.*)\]", printed_by("readelf", "-dW", program))


def shared_object(name, loaded):
    """The file by which the linker met a shared object: libm.so.6, or libxml2.so, which leads to libxml2.so.2."""
    for file in loaded:
        shown = pathlib.Path(file).name
        if ".so" in shown and (name == shown or name.startswith(shown + ".")) and is_object(file):
            return file
    sys.exit(f"the map names no file for {name}")


def is_object(file):
    """Some files named as shared objects are texts that name others."""
    with open(file, "rb") as opened:
        return opened.read(4) == b"\x7fELF"


def linked_files(program, linker_map, build):
    """Files from outside the build with the way in which they are linked. Paths from where the linker ran are inside."""
    archives, loaded = (set(filter(os.path.isabs, files)) for files in files_of_map(linker_map))
    start_files = {file for file in loaded if file.endswith(".o")}
    static = {pathlib.Path(file).resolve() for file in archives | start_files}
    shared = {pathlib.Path(shared_object(name, loaded)).resolve() for name in needed_by(program)}
    files = [(file, "static") for file in static] + [(file, "shared") for file in shared]
    return [each for each in files if build.resolve() not in each[0].parents]


# What it is.


def component_of(file):
    for pattern, name, licence in COMPONENTS:
        if re.fullmatch(pattern, file.name):
            return name, licence
    sys.exit(f"{file} is linked, and cmake/bill_of_materials.py has no row for it")


def source_of(file):
    """The source package of a file and its version; nothing where no package has it, or no system of packages is
    there."""
    # A package may name its files as they were before /lib became a link.
    names = [str(file), str(file).removeprefix("/usr")]
    try:
        found = subprocess.run(["dpkg-query", "-S", *names], stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
    except FileNotFoundError:
        return None
    package = found.stdout.split(": ")[0].split(", ")[0]
    if not package:
        return None
    return printed_by("dpkg-query", "-W", "-f", "${source:Package} ${source:Version}", package).split(" ")


def distribution():
    with open("/etc/os-release", encoding="utf-8") as lines:
        return re.search(r"^ID=\"?([^\"\n]*)", lines.read(), re.MULTILINE)[1]


def file_entry(file, linkage):
    return {
        "type": "file",
        "name": file.name,
        "hashes": [{"alg": "SHA-256", "content": hashlib.sha256(file.read_bytes()).hexdigest()}],
        "properties": [{"name": "linkage", "value": linkage}],
    }


def component_entry(name, licence, files):
    source = source_of(files[0][0])
    entry = {"type": "library", "bom-ref": name, "name": name}
    if source:
        entry["version"] = source[1]
        entry["purl"] = f"pkg:deb/{distribution()}/{source[0]}@{urllib.parse.quote(source[1])}?arch=source"
    entry["licenses"] = [{"expression": licence}]
    entry["components"] = [file_entry(*each) for each in files]
    return entry


def component_entries(files):
    groups = {}
    for file, linkage in sorted(files, key=lambda each: (each[0].name, each[1])):
        groups.setdefault(component_of(file), []).append((file, linkage))
    return [component_entry(*key, groups[key]) for key in sorted(groups)]


# The bill.


def metadata(wanted):
    """What the bill is of. The licence of the program itself is not here, since none has been chosen."""
    about = {"component": {"type": wanted.type, "bom-ref": wanted.name, "name": wanted.name, "version": wanted.version}}
    epoch = os.environ.get("SOURCE_DATE_EPOCH")
    if epoch:
        time = datetime.datetime.fromtimestamp(int(epoch), datetime.timezone.utc)
        about = {"timestamp": time.strftime("%Y-%m-%dT%H:%M:%SZ"), **about}
    return about


def bill(wanted):
    files = linked_files(wanted.program, wanted.map, wanted.build)
    components = component_entries(files + [(header.resolve(), "header") for header in wanted.header])
    content = {
        "version": 1,
        "metadata": metadata(wanted),
        "components": components,
        "dependencies": [{"ref": wanted.name, "dependsOn": [each["bom-ref"] for each in components]}],
    }
    number = uuid.uuid5(uuid.NAMESPACE_URL, json.dumps(content, sort_keys=True))
    return {"bomFormat": "CycloneDX", "specVersion": "1.5", "serialNumber": f"urn:uuid:{number}", **content}


def arguments():
    parser = argparse.ArgumentParser(description=__doc__.split("\n", maxsplit=1)[0])
    parser.add_argument("--name", required=True)
    parser.add_argument("--type", required=True, choices=("application", "library"))
    parser.add_argument("--version", required=True)
    parser.add_argument("--program", required=True, type=pathlib.Path)
    parser.add_argument("--map", required=True, type=pathlib.Path, help="what the linker wrote by -Map")
    parser.add_argument("--build", required=True, type=pathlib.Path)
    parser.add_argument("--header", default=[], action="append", type=pathlib.Path)
    parser.add_argument("--output", required=True, type=pathlib.Path)
    return parser.parse_args()


def main():
    wanted = arguments()
    wanted.output.write_text(json.dumps(bill(wanted), indent=2) + "\n", encoding="utf-8")


if __name__ == "__main__":
    main()
