"""The other side of the keyed archive: writes one as keyed archivers do, and reads ours.

write: prints an archive in base64.   read: takes one in base64 from standard input and prints its
objects, one a line, as class name and fields in JSON."""

import base64
import json
import plistlib
import sys
from plistlib import UID


def write():
    classes = {"$classname": "Quillmarsh.ApplicationDef",
               "$classes": ["Quillmarsh.ApplicationDef", "NSObject"]}
    objects = ["$null", {"NS.objects": [UID(2), UID(2), UID(5)], "$class": UID(9)},
               {"name": UID(3), "path": UID(4), "absent": UID(0), "$class": UID(8)},
               "Schlüssel 🗝", "/usr/share/applications/1Password.desktop",
               {"name": UID(6), "KeyCode": -1, "ModifierFlags": 0x120000, "flag": True,
                "real": 0.5, "icon": UID(7), "$class": UID(8)},
               "$null", b"\x00\x01", classes,
               {"$classname": "NSMutableArray", "$classes": ["NSMutableArray", "NSArray", "NSObject"]}]
    archive = {"$version": 100000, "$archiver": "NSKeyedArchiver", "$top": {"root": UID(1)},
               "$objects": objects}
    print(base64.b64encode(plistlib.dumps(archive, fmt=plistlib.FMT_BINARY)).decode())


def read():
    archive = plistlib.loads(base64.b64decode(sys.stdin.read()), fmt=plistlib.FMT_BINARY)
    assert (archive["$version"], archive["$archiver"]) == (100000, "NSKeyedArchiver")
    assert archive["$objects"][0] == "$null" and list(archive["$top"]) == ["root"]

    def follow(value):
        if not isinstance(value, UID):
            return value
        found = archive["$objects"][value.data]
        return found if found != "$null" else None

    root = follow(archive["$top"]["root"])
    for reference in root.get("NS.objects", [archive["$top"]["root"]]):
        record = follow(reference)
        kind = follow(record.pop("$class"))
        fields = {key: follow(value) for key, value in sorted(record.items())}
        print(json.dumps([kind["$classname"], kind["$classes"], fields], ensure_ascii=False,
                         default=lambda data: base64.b64encode(data).decode()))


{"write": write, "read": read}[sys.argv[1]]()
