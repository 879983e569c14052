#!/usr/bin/env python3
"""Validates each JSON text below tests/companion, and each line of one that a test keeps, by the schema that its first
key names: validate_json.py PROJECT. Prints each difference and ends with 1 where there is one, or nothing to validate."""

import json
import pathlib
import sys

import jsonschema


def schemas(folder):
    found = {}
    for path in sorted(folder.glob("*.json")):
        schema = json.loads(path.read_text(encoding="utf-8"))
        jsonschema.Draft202012Validator.check_schema(schema)
        found[f"tavelin.{path.stem}/1"] = schema
    return found


def faults_of(path, validators):
    text = path.read_text(encoding="utf-8")
    if not text.endswith("\n") or text.count("\n") != 1:
        return ["is not one line with a line feed at its end"]
    document = json.loads(text)
    name = next(iter(document.items()))
    if name[0] != "schema":
        return ["does not begin with its schema"]
    if name[1] not in validators:
        return [f"has the schema {name[1]}, which is not in companion/schema/json"]
    return [f"{error.json_path}: {error.message[:300]}" for error in validators[name[1]].iter_errors(document)]


def main():
    project = pathlib.Path(sys.argv[1])
    found = schemas(project / "companion/schema/json")
    # What several documents hold has one shape in all of them.
    definitions = {}
    failed = False
    for name, schema in found.items():
        for key, value in schema.get("$defs", {}).items():
            if definitions.setdefault(key, value) != value:
                print(f"{name}: $defs/{key} is another one than elsewhere")
                failed = True
    validators = {name: jsonschema.Draft202012Validator(schema) for name, schema in found.items()}
    texts = sorted(path for path in (project / "tests/companion").glob("*/*/json") if path.is_file())
    for path in texts:
        for fault in faults_of(path, validators):
            print(f"{path.relative_to(project)}: {fault}")
            failed = True
    print(f"{len(texts)} documents, {len(found)} schemas")
    return 1 if failed or not texts else 0


sys.exit(main())
