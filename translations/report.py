"""Usage: report.py FILE.ts...
Tells what is missing in the files of translations, one line each; the exit status is 1 when something is.

A text has a comment of its own (//: in the sources, or the one that tells two equal texts apart) or stands in a context
that has one (TRANSLATOR). A file with no translation at all is not begun and counts as a list of texts only.
"""

import pathlib
import re
import sys
import xml.etree.ElementTree

PLACEHOLDER = re.compile(r"%(?:L?\d|n|c)")


def texts(path):
    """Yields context, message and whether the context has a comment; leaves those comments themselves out."""
    for context in xml.etree.ElementTree.parse(path).getroot().findall("context"):
        messages = context.findall("message")
        explained = any(not message.findtext("source") for message in messages)
        for message in messages:
            if message.findtext("source"):
                yield context.findtext("name"), message, explained


def forms(message):
    translation = message.find("translation")
    parts = translation.findall("numerusform") or [translation]
    return [part.text or "" for part in parts]


def is_finished(message):
    return message.find("translation").get("type") is None and all(forms(message))


def lost_placeholders(message):
    wanted = set(PLACEHOLDER.findall(message.findtext("source")))
    for form in forms(message):
        has = set(PLACEHOLDER.findall(form))
        # "one hour" need not name the number
        if has != wanted and not (message.get("numerus") and has == wanted - {"%n"}):
            return True
    return False


def has_comment(message, explained):
    return explained or bool((message.findtext("extracomment") or message.findtext("comment") or "").strip())


def main():
    paths = sys.argv[1:]
    missing = []
    for path in paths:
        name = pathlib.Path(path).name
        entries = list(texts(path))
        begun = any(is_finished(message) for _, message, _ in entries)
        for context, message, explained in entries:
            source = message.findtext("source")
            where = f"{name}: {context}: {source!r}"
            if begun and not is_finished(message):
                missing.append(f"{where} is not translated")
            elif begun and lost_placeholders(message):
                missing.append(f"{where} has other placeholders in the translation")
            if not has_comment(message, explained):
                missing.append(f"{where} has no comment for translators")
        print(f"{name}: {sum(is_finished(message) for _, message, _ in entries)} of {len(entries)} texts translated")
    print(*sorted(set(missing)), sep="\n", end="\n" if missing else "")
    return 1 if missing else 0


if __name__ == "__main__":
    sys.exit(main())
