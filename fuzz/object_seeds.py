#!/usr/bin/env python3
"""Seeds for material_object_fuzz, which reads its first byte as the object class and the rest as
the body behind the frame's ObjSize and ObjType words. Every frame of the given material and bank
files becomes one seed: the ObjType as one byte, then the frame's bytes from its body version on.

    fuzz/object_seeds.py OUTPUT-FOLDER FILE...
"""
import os
import struct
import sys

LEAD = 4  # the lead word before the first frame


def frames(data):
    """(ObjType, body) of each frame that can be walked to, in file order."""
    offset = LEAD
    while offset + 8 <= len(data):
        size, obj_type = struct.unpack_from("<ii", data, offset)
        if size < 4:
            break
        end = min(offset + 4 + size, len(data))
        yield obj_type, data[offset + 8:end]
        offset += 4 + size


def main():
    out = sys.argv[1]
    os.makedirs(out, exist_ok=True)
    written = 0
    for path in sys.argv[2:]:
        with open(path, "rb") as f:
            data = f.read()
        for index, (obj_type, body) in enumerate(frames(data)):
            if not 0 <= obj_type <= 2:
                continue  # the target maps its class byte modulo 3; an unknown type is no seed
            name = "%s.%d" % (os.path.basename(path), index)
            with open(os.path.join(out, name), "wb") as f:
                f.write(bytes([obj_type]) + body)
            written += 1
    if written == 0:
        sys.exit("object_seeds: no frame found")


if __name__ == "__main__":
    main()
