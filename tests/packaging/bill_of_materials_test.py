#!/usr/bin/env python3
"""Whether the bills of materials of a build say what is linked.

bill_of_materials_test.py BUILD SCRIPT: the bills of vomar and tavelin in BUILD, of the shared library where it is built,
and what SCRIPT makes of inputs of its own."""

import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

import jsonschema

BUILD = pathlib.Path(sys.argv[1])
SCRIPT = sys.argv[2]
NAMES = [path.name.removesuffix(".cdx.json") for path in sorted((BUILD / "bill_of_materials").glob("*.cdx.json"))]
SCHEMA = json.loads((pathlib.Path(__file__).parent / "bill_schema.json").read_text(encoding="utf-8"))


def kept_bill(name):
    return json.loads((BUILD / f"bill_of_materials/{name}.cdx.json").read_text(encoding="utf-8"))


def linkage_of(component):
    return {file["name"]: file["properties"][0]["value"] for file in component["components"]}


class Bills(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)

    def made(self, linker_map, **variables):
        """Runs the script for vomar with a map: its status, what it said, and the bytes of the bill."""
        path = pathlib.Path(self.folder.name, "bill.json")
        command = [sys.executable, SCRIPT, "--name", "vomar", "--type", "application", "--version", "1.2.3", "--program",
                   BUILD / "vomar", "--map", linker_map, "--build", BUILD, "--output", path]
        environment = {name: value for name, value in os.environ.items() if name != "SOURCE_DATE_EPOCH"}
        done = subprocess.run(command, env={**environment, **variables}, stderr=subprocess.PIPE, text=True)
        return done.returncode, done.stderr, path.read_bytes() if path.exists() else b""

    def made_of(self, *lines):
        linker_map = pathlib.Path(self.folder.name, "map")
        linker_map.write_text("\n".join(lines) + "\n", encoding="utf-8")
        return self.made(linker_map)

    def test_hold_what_the_format_asks_for(self):
        for name in NAMES:
            jsonschema.validate(kept_bill(name), SCHEMA)

    def test_name_what_is_linked(self):
        names = {name: {each["name"] for each in kept_bill(name)["components"]} for name in NAMES}
        common = {"ERFA", "GCC runtime libraries", "GNU C Library", "TinyXML"}
        self.assertEqual(names["vomar"], common)
        self.assertEqual(names["tavelin"], common | {"CLI11", "JSON for Modern C++", "libxml2", "xxHash"})
        self.assertEqual(names.get("libtavelin", common), common)

    def test_say_how_it_is_linked(self):
        components = {each["name"]: each for each in kept_bill("tavelin")["components"]}
        self.assertEqual(linkage_of(components["GNU C Library"])["libc.so.6"], "shared")
        self.assertEqual(linkage_of(components["GCC runtime libraries"])["libstdc++.a"], "static")
        self.assertEqual(linkage_of(components["xxHash"]), {"xxhash.h": "header"})
        self.assertEqual(components["TinyXML"]["licenses"], [{"expression": "Zlib"}])

    @unittest.skipUnless(shutil.which("dpkg-query"), "no packages that say versions")
    def test_have_the_version_of_each_component(self):
        for name in NAMES:
            for component in kept_bill(name)["components"]:
                self.assertRegex(component["version"], r"^[0-9]", component["name"])

    def test_depend_on_each_component(self):
        bill = kept_bill("tavelin")
        self.assertEqual(bill["dependencies"],
                         [{"ref": "tavelin", "dependsOn": [each["bom-ref"] for each in bill["components"]]}])

    def test_are_the_same_bytes_each_time(self):
        linker_map = BUILD / "bill_of_materials/vomar.map"
        self.assertEqual(self.made(linker_map), self.made(linker_map, TZ="Asia/Kathmandu", LC_ALL="C"))

    def test_have_the_time_of_the_sources_or_none(self):
        linker_map = BUILD / "bill_of_materials/vomar.map"
        self.assertNotIn("timestamp", json.loads(self.made(linker_map)[2])["metadata"])
        timed = json.loads(self.made(linker_map, SOURCE_DATE_EPOCH="1700000000")[2])
        jsonschema.validate(timed, SCHEMA)
        self.assertEqual(timed["metadata"]["timestamp"], "2023-11-14T22:13:20Z")
        self.assertEqual(timed["metadata"]["component"]["version"], "1.2.3")

    def test_leave_out_archives_of_which_nothing_was_taken(self):
        _, _, written = self.made_of("LOAD /usr/lib/libunused.a")
        self.assertEqual(json.loads(written)["components"], [])

    def test_refuse_what_they_do_not_know(self):
        status, said, written = self.made_of("/opt/libunheard.a(some.o)", "LOAD /opt/libunheard.a")
        self.assertEqual((status, written), (1, b""))
        self.assertIn("/opt/libunheard.a is linked, and cmake/bill_of_materials.py has no row for it", said)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
