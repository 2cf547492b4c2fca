#!/usr/bin/env python3
"""Makes a fuzzer's corpus anew from what its runs have learned, small enough to be stored: the inputs that together
cover most. Inputs under names of their own, which are findings, stay. Usage: fuzz/merge.py NAME, behind fuzz/run.sh"""

import re
import subprocess
import sys
import tempfile
from pathlib import Path

MOST_FILES = 190
LEARNED_NAME = re.compile("[0-9a-f]{40}")


def covered_by_file(program, folders):
    """The places in the code that each input reaches, by file, as libFuzzer notes them in its control file."""
    with tempfile.TemporaryDirectory() as made:
        control = Path(made, "control")
        output = Path(made, "output")
        output.mkdir()
        subprocess.run(
            [program, "-set_cover_merge=1", "-use_counters=0", f"-merge_control_file={control}", output, *folders],
            check=True, stderr=subprocess.DEVNULL)
        lines = control.read_text().splitlines()
    names = lines[2:2 + int(lines[0])]
    notes = (line.split() for line in lines[2 + len(names):])
    return {Path(names[int(note[1])]): set(note[2:]) for note in notes if note[0] == "FT"}


def choose(covered):
    """Inputs that together cover most, each the one that adds most to those before."""
    chosen, reached = [], set()
    while covered and len(chosen) < MOST_FILES:
        best = max(covered, key=lambda file: len(covered[file] - reached))
        added = covered.pop(best) - reached
        if not added:
            break
        chosen.append(best)
        reached |= added
    return chosen


def main(name):
    root = Path(__file__).resolve().parent.parent
    corpus = root / "fuzz/corpus" / name
    learned = root / "build/fuzz/corpus" / name
    chosen = choose(covered_by_file(root / f"build/fuzz/fuzz/zef_fuzz_{name}", [corpus, learned]))
    contents = {file.name: file.read_bytes() for file in chosen}
    for file in corpus.iterdir():
        if LEARNED_NAME.fullmatch(file.name):
            file.unlink()
    for file_name, content in contents.items():
        (corpus / file_name).write_bytes(content)
    print(f"{len(contents)} inputs, {sum(map(len, contents.values()))} bytes")


main(sys.argv[1])
