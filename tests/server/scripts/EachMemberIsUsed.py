#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The QOR_File authors
"""Checks that scripts use each member of an interface definition by name, the set and the get of a property apart.

    EachMemberIsUsed.py QOR_File.idl SCRIPT.vbs...
"""
import re
import sys


def members(definition):
    """Pairs of kind (propget, propput, method) and name, in their order, of all interfaces."""
    found = re.findall(r'\[((?:propget, |propput, )?)id\(\d+\)[^]]*?\]\s*HRESULT (\w+)\(', definition)
    return [(kind.rstrip(', ') or 'method', name) for kind, name in found]


def statements(script):
    """Lines without comments and texts, continued ones joined."""
    script = re.sub(r'"[^"\n]*"', '""', script)
    script = re.sub(r"'[^\n]*", '', script)
    return re.sub(r' _\n', ' ', script).splitlines()


def uses(lines):
    """What is set and what is called or got, as pairs of kind and name in lower case."""
    used = set()
    for line in lines:
        put = re.match(r'\s*\w+\.(\w+)(?:\([^()]*\))?\s*=', line)
        if put:
            used.add(('propput', put[1].lower()))
            line = line[put.end():]
        for name in re.findall(r'\.(\w+)', line):
            used |= {('propget', name.lower()), ('method', name.lower())}
    return used


def main():
    with open(sys.argv[1], encoding='utf-8') as file:
        definition = re.sub(r'"[^"]*"', '""', file.read())   # a bracket in a help text is none of the language's
    published = members(definition)
    if not published or len(published) != definition.count('HRESULT'):
        sys.exit('the interface definition is not understood')
    lines = []
    for path in sys.argv[2:]:
        with open(path, encoding='utf-8') as file:
            lines += statements(file.read())
    used = uses(lines)
    missing = [f'{kind} {name}' for kind, name in published if (kind, name.lower()) not in used]
    for member in missing:
        print('not used:', member)
    if missing:
        sys.exit(f'{len(missing)} of {len(published)} members are not used')
    print(f'all {len(published)} members are used')


main()
