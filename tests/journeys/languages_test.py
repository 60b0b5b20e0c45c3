"""The language of the window program is that of its surroundings.

BROOMTIDE       the program
"""

import os
import subprocess
import unittest

VARIABLES = ("LANGUAGE", "LC_ALL", "LC_MESSAGES", "LANG")
ENGLISH, GERMAN, CHINESE = "Usage: broomtide", "Aufruf: broomtide", "用法：broomtide"


def first_line(program, **surroundings):
    """The first line of the help."""
    environment = {name: value for name, value in os.environ.items()
                   if name not in VARIABLES and not name.startswith("LC_")}
    result = subprocess.run([program, "--help"], env=environment | surroundings, timeout=30,
                            capture_output=True, check=True)
    return result.stdout.decode().splitlines()[0]


class Languages(unittest.TestCase):
    def test_the_surroundings_decide(self):
        for surroundings, expected in [
            ({}, ENGLISH),
            ({"LANG": "C.UTF-8"}, ENGLISH),
            ({"LANG": "C.UTF-8", "LANGUAGE": "de"}, ENGLISH),
            ({"LANG": "en_GB.UTF-8"}, ENGLISH),
            ({"LANG": "fr_FR.UTF-8"}, ENGLISH),
            ({"LANG": "de_AT.UTF-8"}, GERMAN),
            ({"LANG": "en_US.UTF-8", "LC_MESSAGES": "de_DE.UTF-8"}, GERMAN),
            ({"LANG": "de_DE.UTF-8", "LC_MESSAGES": "en_US.UTF-8"}, ENGLISH),
            ({"LANG": "de_DE.UTF-8", "LC_ALL": "zh_CN.UTF-8"}, CHINESE),
            ({"LANG": "en_US.UTF-8", "LANGUAGE": "fr:zh_CN:de"}, CHINESE),
            ({"LANG": "de_DE.UTF-8", "LANGUAGE": "en:de"}, ENGLISH),
            ({"LANG": "zh_TW.UTF-8"}, ENGLISH),
        ]:
            with self.subTest(**surroundings):
                self.assertEqual(first_line(os.environ["BROOMTIDE"], **surroundings), expected)


if __name__ == "__main__":
    unittest.main()
