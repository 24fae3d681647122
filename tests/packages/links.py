#!/usr/bin/env python3
"""Tells the relative links of documents that lead nowhere, and ends with 1 where there is one.

    links.py FOLDER     every .md below it, and the headings and marks that they point to
"""
import pathlib
import re
import sys
import urllib.parse

LINK = re.compile(r"\]\(\s*<?([^)\s>]+)")


def text_of(document):
    return document.read_text(encoding="utf-8")


def headings(document):
    """As they are pointed to: in small letters, with hyphens for blanks and no other signs."""
    text = text_of(document)
    titles = re.findall(r"^#+\s+(.*?)\s*$", text, re.M)
    marks = re.findall(r"<a id=\"([^\"]+)\"", text)
    return {re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-") for title in titles} | set(marks)


def faults(document):
    for link in LINK.findall(text_of(document)):
        if re.match(r"[a-z]+:", link):
            continue
        path, _, heading = urllib.parse.unquote(link).partition("#")
        target = document.parent / path if path else document
        if not target.exists():
            yield f"{document}: {link} is not there"
        elif heading and target.suffix == ".md" and heading not in headings(target):
            yield f"{document}: {link} has no such heading"


def main():
    folder = pathlib.Path(sys.argv[1])
    documents = sorted(folder.rglob("*.md"))
    found = [fault for document in documents for fault in faults(document)]
    print("\n".join(found) if found else f"{len(documents)} documents: all links lead somewhere.")
    return 1 if found or not documents else 0


if __name__ == "__main__":
    sys.exit(main())
