"""zip.py ARCHIVE FOLDER TIME: packs a folder so that the same files always give the same bytes.

Names are kept as UTF-8 and marked so, which the zip of many systems does not do; TIME is in seconds since 1970 and
counts for every file, in UTC.
"""
import os
import sys
import time
import zipfile


def main():
    archive, folder, seconds = sys.argv[1], sys.argv[2], int(sys.argv[3])
    moment = time.gmtime(max(seconds, 315532800))[:6]  # a zip knows no time before 1980
    paths = []
    for place, _, names in os.walk(folder):
        paths += [os.path.relpath(os.path.join(place, name), folder) for name in names]
    with zipfile.ZipFile(archive, "w", zipfile.ZIP_DEFLATED, compresslevel=9) as packed:
        for path in sorted(paths, key=lambda each: each.encode()):
            entry = zipfile.ZipInfo(path.replace(os.sep, "/"), moment)
            entry.compress_type = zipfile.ZIP_DEFLATED
            entry.external_attr = 0o100644 << 16
            entry.create_system = 3  # else names are read as those of another code page
            with open(os.path.join(folder, path), "rb") as file:
                packed.writestr(entry, file.read(), compresslevel=9)


main()
