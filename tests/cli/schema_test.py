#!/usr/bin/env python3
"""Compares what ferrolyn-cli prints as JSON with the schema of the documents.

    schema_test.py PROGRAM SCHEMA SAMPLES

Runs every command that offers JSON on the samples. Each answer has to follow the command's definition, and must no longer do so
once one of its fields is missing, has another type, or has a companion: what the schema does not say would be noticed.
"""
import copy
import json
import re
import shutil
import subprocess
import sys
import tempfile
from pathlib import Path

import jsonschema

program, schema_file, samples = (Path(argument).resolve() for argument in sys.argv[1:])
schema = json.loads(schema_file.read_text(encoding="utf-8"))
mapped = ["FERRO32K.BIN", "--spec", "FERRO32K.SPC"]
runs = {
    "info": [["FERRO32K.BIN", "FERRO64K.BIN"]],
    "show": [mapped, [*mapped, "--raw", "fuel-idle"], ["FERRO64K.BIN", "--spec", "FERRO32K.SPC"], ["FERRO32K.BIN", "--spec", "NONE.SPC"]],
    "diff": [["FERRO32K.BIN", "NEW.BIN", "--spec", "FERRO32K.SPC"], ["FERRO32K.BIN", "NEW.BIN"], ["FERRO32K.BIN", "FERRO32K.BIN"]],
    "find": [["FERRO64K.BIN", "--reasons"], ["FERRO64K.BIN", "NEW.BIN", "MISSING.BIN"], ["NONE.SPC"]],
    "move": [["--from", "FERRO32K.BIN", "--spec", "FERRO32K.SPC", "--to", "FERRO64K.BIN", "-o", "MOVED.SPC"]],
    "check": [mapped, ["FERRO64K.BIN", "--spec", "FERRO32K.SPC"], ["NEW.BIN", "MISSING.BIN", "--spec", "FERRO32K.SPC"]],
}


def output(folder, *arguments):
    return subprocess.run([program, *arguments], cwd=folder, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, check=False).stdout.decode()


def commands_with_json():
    commands = re.findall(r"^  ([a-z]+) ", output(".", "--help").split("Commands:")[1], re.M)
    return [command for command in commands if re.search(r"--format .*json", output(".", command, "--help"))]


def make_files(folder):
    for sample in [*samples.glob("*.BIN"), *samples.glob("*.SPC")]:
        shutil.copy(sample, folder)
    image = bytearray((samples / "FERRO32K.BIN").read_bytes())
    for place in (0x01F0, 0x6003, 0x6025, 0x7000):  # rev limiter, axis, cell, elsewhere
        image[place] ^= 0x11
    image[0x6026] = 255
    (folder / "NEW.BIN").write_bytes(image)
    (folder / "NONE.SPC").write_text("; places nothing\n[Main]\n")


def places(value, path=()):
    """The path of every object below a value."""
    if isinstance(value, dict):
        yield path
    for key, below in value.items() if isinstance(value, dict) else enumerate(value) if isinstance(value, list) else ():
        yield from places(below, (*path, key))


def at(value, path):
    for key in path:
        value = value[key]
    return value


def changed(answer):
    """The answer with one change after another that the schema must not allow, each with its name."""
    seen = set()
    for path in places(answer):
        form = tuple("*" if isinstance(key, int) else key for key in path)
        if form in seen:  # one object of each form will do
            continue
        seen.add(form)
        companion = copy.deepcopy(answer)
        at(companion, path)["extra"] = 1
        yield f"{path} with another field", companion
        for key in at(answer, path):
            if key == "reasons" and answer["command"] == "find":
                continue  # may be missing
            missing = copy.deepcopy(answer)
            del at(missing, path)[key]
            yield f"{path} without {key}", missing
            other = copy.deepcopy(answer)
            at(other, path)[key] = {"other": "type"}
            yield f"{path} with another {key}", other


def answers(text):
    """One JSON of many lines, or one on each line."""
    return [json.loads(text)] if text.startswith("{\n") else [json.loads(line) for line in text.splitlines()]


def main():
    failures = 0
    jsonschema.Draft202012Validator.check_schema(schema)
    with tempfile.TemporaryDirectory() as name:
        make_files(Path(name))
        for command in commands_with_json():
            validator = jsonschema.Draft202012Validator({**schema, "oneOf": [{"$ref": f"#/$defs/{command}"}]})
            for arguments in runs[command]:
                found = answers(output(name, command, "--format", "json", *arguments))
                if not found:
                    print(f"FAILED: {command} {arguments} prints nothing")
                    failures += 1
                for answer in found:
                    if error := jsonschema.exceptions.best_match(validator.iter_errors(answer)):
                        print(f"FAILED: {command} {arguments}: {error.json_path}: {error.message[:300]}")
                        failures += 1
                    for change, other in changed(answer):
                        if validator.is_valid(other):
                            print(f"FAILED: {command} {arguments}: the schema allows {change}")
                            failures += 1
    sys.exit(failures > 0)


main()
