#!/usr/bin/env python3
"""Writes and reads store files with nothing but Python's standard library.

    foreign_store.py write FILE STATES   a store as the platform's own archiver lays it out
    foreign_store.py read FILE [STATES]  prints what a store holds; fails when it is not STATES

The states are JSON: a dictionary of arrays of objects {"class": ..., KEY: VALUE ...}; a size is
{"size": "{W, H}"}.
"""
import gzip
import json
import plistlib
import sys

UID = plistlib.UID


class Archive:
    def __init__(self):
        self.objects = ["$null"]
        self.classes = {}

    def add(self, value):
        self.objects.append(value)
        return UID(len(self.objects) - 1)

    def class_entry(self, *names):
        if names not in self.classes:
            self.classes[names] = self.add({"$classname": names[0], "$classes": list(names)})
        return self.classes[names]

    def coded(self, value):
        """The reference of a value. A container comes before what is in it."""
        if not isinstance(value, (dict, list)):
            return self.add(value)
        uid = self.add({})
        if isinstance(value, list):
            names, entry = ["NSMutableArray", "NSArray"], {"NS.objects": self.all(value)}
        elif "size" in value:
            names, entry = ["NSValue"], {"NS.special": 2, "NS.sizeval": self.add(value["size"])}
        elif "class" in value:
            names = [value["class"]]
            entry = {key: self.coded(item) for key, item in value.items() if key != "class"}
        else:
            names = ["NSMutableDictionary", "NSDictionary"]
            entry = {"NS.keys": self.all(value), "NS.objects": self.all(value.values())}
        self.objects[uid.data] = {**entry, "$class": self.class_entry(*names, "NSObject")}
        return uid

    def all(self, values):
        return [self.coded(value) for value in values]


def plain(archive, value):
    """The value with every reference followed."""
    if isinstance(value, UID):
        value = archive["$objects"][value.data]
    if not isinstance(value, dict):
        return value
    entry = archive["$objects"][value["$class"].data]
    name = entry["$classname"]
    assert entry["$classes"][0] == name and entry["$classes"][-1] == "NSObject", entry
    if name == "NSMutableArray":
        return [plain(archive, item) for item in value["NS.objects"]]
    if name == "NSMutableDictionary":
        return {plain(archive, key): plain(archive, item)
                for key, item in zip(value["NS.keys"], value["NS.objects"], strict=True)}
    if name == "NSValue":
        assert value["NS.special"] == 2, value
        return {"size": plain(archive, value["NS.sizeval"])}
    return {"class": name, **{key: plain(archive, item) for key, item in value.items()
                              if key != "$class"}}


def main():
    command, path, *states = sys.argv[1:]
    if command == "write":
        archive = Archive()
        root = archive.coded(json.loads(*states))
        with gzip.open(path, "wb") as file:
            plistlib.dump({"$version": 100000, "$archiver": "NSKeyedArchiver",
                           "$top": {"root": root}, "$objects": archive.objects},
                          file, fmt=plistlib.FMT_BINARY)
    else:
        with gzip.open(path) as file:
            archive = plistlib.load(file, fmt=plistlib.FMT_BINARY)
        assert archive["$version"] == 100000 and archive["$archiver"] == "NSKeyedArchiver"
        found = plain(archive, archive["$top"]["root"])
        print(json.dumps(found, ensure_ascii=False))
        sys.exit(bool(states) and json.loads(*states) != found)


if __name__ == "__main__":
    main()
