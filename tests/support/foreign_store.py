#!/usr/bin/env python3
"""Writes and reads store files with nothing but Python's standard library.

    foreign_store.py write FILE          a store as the platform's own archiver lays it out
    foreign_store.py write-plain FILE    the same, not compressed
    foreign_store.py write-own FILE      only a state of the program "Own": 5 with Option puts its
                                         window at (40, 60) with 500 by 400
    foreign_store.py read FILE           prints what a store holds, as JSON
"""
import gzip
import json
import plistlib
import sys

UID = plistlib.UID


class Archive:
    def __init__(self):
        self.objects = ["$null"]

    def add(self, value):
        self.objects.append(value)
        return UID(len(self.objects) - 1)

    def class_entry(self, *names):
        for index, entry in enumerate(self.objects):
            if isinstance(entry, dict) and entry.get("$classname") == names[0]:
                return UID(index)
        return self.add({"$classname": names[0], "$classes": list(names)})

    def mutable_text(self, text):
        return self.add({"NS.string": text,
                         "$class": self.class_entry("NSMutableString", "NSString", "NSObject")})

    def array(self, uids):
        return self.add({"NS.objects": uids,
                         "$class": self.class_entry("NSMutableArray", "NSArray", "NSObject")})

    def size(self, text):
        return self.add({"NS.special": 2, "NS.sizeval": self.add(text),
                         "$class": self.class_entry("NSValue", "NSObject")})

    def key_event(self, code, flags, tag):
        return self.add({"keyCode": self.add(code), "modifierFlags": self.add(flags),
                         "tag": self.add(tag),
                         "$class": self.class_entry("CarbonKeyEvent", "NSObject")})

    def state(self, **fields):
        entry = {"WindowState." + key: value for key, value in fields.items()}
        entry["$class"] = self.class_entry("WindowState", "NSObject")
        return self.add(entry)

    def data(self, root, arrays):
        self.objects[root.data] = {
            "NS.keys": [self.add(key) for key in arrays], "NS.objects": list(arrays.values()),
            "$class": self.class_entry("NSMutableDictionary", "NSDictionary", "NSObject")}
        return plistlib.dumps({"$version": 100000, "$archiver": "NSKeyedArchiver",
                               "$top": {"root": root}, "$objects": self.objects},
                              fmt=plistlib.FMT_BINARY)


def own_store():
    a = Archive()
    root = a.add({})
    no = a.add(False)
    state = a.state(PrefersDisplay=no, IsGlobal=no, AppBundleId=a.add("Own"), AppName=a.add("Own"),
                    OriginalWindowRect=a.add("{{40, 60}, {500, 400}}"),
                    OriginalQuartzDisplayBounds=a.add("{{0, 0}, {1600, 900}}"),
                    WindowStateName=a.add("Corner"), IsDefault=no, CenterWindow=no,
                    WindowScale=a.size("{0, 0}"), KeyEvent=a.key_event(23, 0x80000, 0))
    return a.data(root, {"Own": a.array([state])})


def store():
    a = Archive()
    root = a.add({})
    yes, no = a.add(True), a.add(False)
    zero = a.add("{{0, 0}, {0, 0}}")
    built_in = a.state(PrefersDisplay=no, IsGlobal=no, OriginalWindowRect=zero,
                       OriginalQuartzDisplayBounds=zero, WindowStateName=a.add("Full Screen"),
                       IsDefault=yes, CenterWindow=yes, WindowScale=a.size("{1, 1}"),
                       KeyEvent=a.key_event(18, 0x80000, 0))
    own = a.state(PrefersDisplay=yes, IsGlobal=no, AppBundleId=a.add("org.gnome.Terminal"),
                  AppName=a.mutable_text("Terminál"), OriginalWindowRect=a.add(
                      "{{-1280.5, 23}, {1066.6666666666667, 0.10000000000000001}}"),
                  OriginalQuartzDisplayBounds=a.add("{{-1280, 0}, {1280, 1024}}"),
                  WindowStateName=a.add("左半分 🪟"), IsDefault=no, CenterWindow=no,
                  WindowScale=a.size("{0, 0}"), KeyEvent=a.key_event(123, 0x1E0000, -5))
    sparse = a.state(IsGlobal=a.add(1), WindowStateName=UID(0))
    return a.data(root, {"defaults": a.array([built_in]), "org.gnome.Terminal": a.array([own]),
                         "globals": a.array([sparse])})


def plain(archive, value):
    """The value with every reference followed."""
    if isinstance(value, UID):
        value = archive["$objects"][value.data]
        if value == "$null":
            return None
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
    command, path = sys.argv[1:]
    if command == "read":
        with gzip.open(path) as file:
            archive = plistlib.loads(file.read(), fmt=plistlib.FMT_BINARY)
        assert archive["$version"] == 100000 and archive["$archiver"] == "NSKeyedArchiver"
        json.dump(plain(archive, archive["$top"]["root"]), sys.stdout, ensure_ascii=False,
                  sort_keys=True, indent=1)
        print()
    else:
        content = own_store() if command == "write-own" else store()
        with open(path, "wb") as file:
            file.write(content if command == "write-plain" else gzip.compress(content))


if __name__ == "__main__":
    main()
