"""Profiles of callgrind."""

import re


class Profile:
    """A profile in callgrind's format, as the cost of each stack."""

    def __init__(self, text):
        self.functions, self.objects = {}, {}
        self.costs = {}
        self.objects_of = {}
        self._read(text.splitlines())

    @staticmethod
    def _named(table, word):
        """Resolves "(12) name" and "(12)"."""
        number, _, name = word.partition(" ")
        if name:
            table[number] = name
        return table.get(number, "")

    def _read(self, lines):
        stack, obj, skip = (), "", False
        for line in lines:
            if line.startswith("fn="):
                stack = tuple(self._named(self.functions, line[3:]).split("'"))
                self.objects_of.setdefault(stack[0], obj)
            elif line.startswith("ob="):
                obj = self._named(self.objects, line[3:])
            elif line.startswith(("cob=", "cfn=")):
                self._named(self.objects if line[1] == "o" else self.functions, line[4:])
            elif line.startswith("calls="):
                skip = True  # the next line is the cost of the callee
            elif re.match(r"[+*\-\d]", line):
                if not skip:
                    self.costs[stack] = self.costs.get(stack, 0) + int(line.split()[1])
                skip = False
