"""What stands in folders, byte for byte, with dates and attributes: as it is, and as it is expected."""

import os

ATTRIBUTE = "user.DOSATTRIB"


def attributes_of(path):
    try:
        return os.getxattr(path, ATTRIBUTE, follow_symlinks=False)
    except OSError:
        return b""


def picture(root):
    """Path below the root -> what is there. Dates of folders change with their contents and are left out."""
    seen = {}
    for folder, names, files in os.walk(root):
        for name in names:
            path = os.path.join(folder, name)
            seen[os.path.relpath(path, root)] = ("folder", attributes_of(path))
        for name in files:
            path = os.path.join(folder, name)
            with open(path, "rb") as file:
                contents = file.read()
            facts = os.stat(path)
            seen[os.path.relpath(path, root)] = (contents, facts.st_mtime_ns, facts.st_mode, attributes_of(path))
    return seen


def below(seen, name):
    """The part of a picture that is an item: a file, or a folder with all that it holds."""
    return {path: facts for path, facts in seen.items() if path == name or path.startswith(name + os.sep)}


def differences(found, wanted):
    """Words for what differs; empty: nothing."""
    words = [f"missing {path!r}" for path in wanted if path not in found]
    words += [f"unexpected {path!r}" for path in found if path not in wanted]
    for path in found.keys() & wanted.keys():
        if found[path] != wanted[path]:
            words.append(f"{path!r} is {brief(found[path])} and should be {brief(wanted[path])}")
    return "; ".join(words[:5])


def brief(facts):
    return facts if facts[0] == "folder" else (f"{len(facts[0])} bytes of {facts[0][:10]!r}", *facts[1:])
