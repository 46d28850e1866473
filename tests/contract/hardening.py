#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Fails when a binary can be taken over more easily than it must be.

    hardening.py [--fortified PROBE] FILE...

Each ELF file is to be position-independent, without code on the stack and without a segment that may be both
written and executed, with bindings all made at the start and then read-only, and with canaries on the stack.
PROBE is a program of the same build that copies beyond what the compiler sees to be its limit: it must have
become a checked call.
"""
import argparse
import subprocess
import sys


def read(file, *options):
    return subprocess.run(["readelf", "--wide", *options, file], check=True, capture_output=True, text=True,
                          env={"LC_ALL": "C", "PATH": "/usr/bin:/bin"}).stdout


def imports_of(file):
    """The names that the file takes from others, without their versions."""
    names = set()
    for line in read(file, "--dyn-syms").splitlines():
        words = line.split()
        if len(words) > 7 and words[6] == "UND":
            names.add(words[7].split("@")[0])
    return names


def segments_of(file):
    """The flags of each kind of segment: {"LOAD": ["R", "R E"], ...}"""
    segments = {}
    for line in read(file, "--segments").splitlines():
        words = line.split()
        if len(words) > 6 and words[1].startswith("0x") and words[2].startswith("0x"):
            segments.setdefault(words[0], []).append(" ".join(words[6:-1]))
    return segments


def faults_of(file):
    segments = segments_of(file)
    dynamic = read(file, "--dynamic")
    checks = {
        "is not position-independent": "DYN" in read(file, "--file-header").split("Type:")[1].split("\n")[0],
        "has no segments": len(segments.get("LOAD", [])) > 1,
        "may execute its stack": segments.get("GNU_STACK") == ["RW"],
        "may execute what it may write": not any("W" in flags and "E" in flags
                                                 for flags in segments.get("LOAD", [])),
        "has bindings that stay writable": "GNU_RELRO" in segments,
        "binds lazily": "BIND_NOW" in dynamic or "NOW" in dynamic.split("FLAGS_1")[-1].split("\n")[0].split(),
        "has no canaries": "__stack_chk_fail" in imports_of(file),
    }
    return [fault for fault, is_fine in checks.items() if not is_fine]


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--fortified", metavar="PROBE")
    parser.add_argument("files", metavar="FILE", nargs="+")
    arguments = parser.parse_args()
    faults = [f"{file} {fault}" for file in arguments.files for fault in faults_of(file)]
    if arguments.fortified and "__strcpy_chk" not in imports_of(arguments.fortified):
        faults.append("calls of the C library are not checked")
    for fault in faults:
        print(f"FAIL: {fault}")
    print(f"{len(arguments.files)} files")
    return 1 if faults else 0


sys.exit(main())
