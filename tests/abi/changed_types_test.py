"""changed_types_test ABIDIFF TYPES WORK: ABIDIFF tells each change in a copy of the kept TYPES, of a record that functions
take and of one that they know in lists alone, and nothing of a copy without a change."""

import re
import subprocess
import sys
from pathlib import Path

abidiff, kept, work = sys.argv[1], Path(sys.argv[2]), Path(sys.argv[3])
types = kept.read_text()
copy = work / "changed.abi"
work.mkdir(parents=True, exist_ok=True)


def told_of(changed):
    copy.write_text(changed)
    run = subprocess.run((abidiff, kept, copy), stdout=subprocess.PIPE, text=True)
    return run.returncode, run.stdout


def with_field_elsewhere(record, field, offset):
    pattern = rf'(<class-decl name="{record}" .*?layout-offset-in-bits=")\d+("[^<]*<var-decl name="{field}" )'
    changed, count = re.subn(pattern, rf"\g<1>{offset}\g<2>", types, count=1, flags=re.S)
    assert count == 1, f"{kept} has no {field} of {record}"
    return changed


assert told_of(types) == (0, ""), told_of(types)
for record, field in (("TFuncRes", "Details"), ("TXYAdbl", "X")):
    status, text = told_of(with_field_elsewhere(record, field, 4096))
    assert status == 4 and f"{field}' offset changed" in text, (record, status, text)

values = re.sub(r'(<enumerator name="AutoCalculation" value=")\d+', r"\g<1>77", types)
status, text = told_of(values)
assert status == 4 and "AutoCalculation" in text, (status, text)
