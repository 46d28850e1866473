#!/usr/bin/env python3
"""Holds the options that a manual page names against the help of the program, in both directions.

    man_page.py PAGE PROGRAM

A subsection of COMMANDS stands for the command of its name, and has the shared options as well when it
refers to the section ANALYSIS OPTIONS. Options elsewhere belong to the program itself. The page says of each
of those options which limits and which default the help of "analyze" gives.
"""
import os
import re
import subprocess
import sys

SHARED = "ANALYSIS OPTIONS"


def options_of_page(path):
    """The options by command, "" being the program, each as the help writes it."""
    options, references = {"": set()}, set()
    section = command = ""
    with open(path, encoding="utf-8") as page:
        for line in page:
            words = line.split()
            macro = words[0] if words else ""
            if macro == ".Sh":
                section, command = " ".join(words[1:]), ""
                command = SHARED if section == SHARED else ""
            elif macro == ".Ss" and section == "COMMANDS":
                command = " ".join(words[1:])
                options[command] = set()
            elif macro == ".Sx" and " ".join(words[1:]).rstrip(" .") == SHARED:
                references.add(command)
            elif macro == ".It" and words[1:2] == ["Fl"]:
                text = " ".join(words[1:])
                text = re.sub(r"\bFl (\S+)", r"-\1", text)
                text = text.replace(" , ", ",").replace("Ar ", "")
                options.setdefault(command, set()).add(text)
    shared = options.pop(SHARED, set())
    for command in references:
        options[command] |= shared
    return options


def help_of(program, *command):
    environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", LC_ALL="C.UTF-8")
    return subprocess.run([program, *command, "--help"], env=environment, check=True,
                          capture_output=True, text=True).stdout


def options_of_help(text):
    """Options end two blanks before their explanation. What the help tells of checks is left out: the
    check that a FILE:FILE passes, and what an option needs."""
    found = re.findall(r"^ +((?:-\w,)?--\S+(?: \S+)*?)(?:  |$)", text, re.M)
    return {re.sub(r" (\w+):\1$", r" \1", re.sub(r" Needs: .*", "", option)) for option in found}


def paragraphs_of_page(path):
    """The text of each option among ANALYSIS OPTIONS, by its name."""
    with open(path, encoding="utf-8") as page:
        section = page.read().partition(f".Sh {SHARED}\n")[2].partition("\n.Sh ")[0]
    return {item.split()[0]: item for item in re.split(r"^\.It Fl -", section, flags=re.M)[1:]}


def numbers_of_help(text):
    """What stands behind the explanation of an option, ", 0.05 to 10 (default: 1.5)", by its name."""
    values = {}
    for name, tail in re.findall(r"^ +--(\S+) .*?((?:, (?:up )?[^,]*)? \(default: \S+\))$", text, re.M):
        values[name] = re.findall(r"\d+(?:\.\d+)?|(?<=default: )[a-z]+", tail)
    return values


def compare_numbers(page, help_text):
    """Whether the page has all of them."""
    paragraphs = paragraphs_of_page(page)
    values = {name: found for name, found in numbers_of_help(help_text).items() if name in paragraphs}
    missing = [(name, value) for name, found in values.items() for value in found
               if not re.search(rf"(?<![\d.]){re.escape(value)}(?![\d]|\.\d)", paragraphs[name])]
    for name, value in missing:
        print(f"FAIL: the page does not say {value} of --{name}")
    return bool(values) == bool(paragraphs) and not missing


def main():
    page, program = sys.argv[1:]
    in_page = options_of_page(page)
    overview = help_of(program)
    listed = re.search(r"^Subcommands:\n((?:  .*\n)*)", overview, re.M)
    commands = re.findall(r"^  (\S+)", listed.group(1), re.M) if listed else []
    in_help = {command: options_of_help(help_of(program, command)) for command in commands}
    in_help[""] = options_of_help(overview)
    failed = False
    for command in sorted(set(in_page) | set(in_help)):
        name = " ".join(filter(None, [os.path.basename(program), command]))
        ours, theirs = in_page.get(command, set()), in_help.get(command, set())
        for option in sorted(ours - theirs):
            print(f"FAIL: the page has {name} {option}, the help has not")
        for option in sorted(theirs - ours):
            print(f"FAIL: the help has {name} {option}, the page has not")
        failed |= ours != theirs or not ours
    failed |= "analyze" in commands and not compare_numbers(page, help_of(program, "analyze"))
    print(f"{sum(map(len, in_help.values()))} options of {len(in_help)} commands")
    return 1 if failed else 0


sys.exit(main())
