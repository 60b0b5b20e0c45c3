"""The built programs carry what the build's hardening options are meant to give them.

BROOMTIDE, BROOMTIDE_CLI   the programs to look at
"""

import os
import re
import subprocess
import unittest

# What each option of readelf must tell, and what it must not.
EXPECTED = [
    ("--file-header", r"Type: +DYN ", None),
    ("--dynamic", r"\(FLAGS\).*BIND_NOW", r"TEXTREL|RPATH|RUNPATH"),
    ("--dynamic", r"\(FLAGS_1\).*PIE", None),
    ("--segments", r"GNU_RELRO .* R +0x", None),
    ("--segments", r"GNU_STACK .* RW +0x", r" RWE +0x"),
    ("--dyn-syms", r" UND __stack_chk_fail\b", None),
    ("--dyn-syms", r" UND _ZSt21__glibcxx_assert_failPKciS0_S0_", None),
    ("--dyn-syms", r" UND __\w+_chk\b", None),
]


class Hardening(unittest.TestCase):
    def test_the_programs_are_what_the_options_make_of_them(self):
        for program in os.environ["BROOMTIDE"], os.environ["BROOMTIDE_CLI"]:
            for option, wanted, unwanted in EXPECTED:
                with self.subTest(program=os.path.basename(program), wanted=wanted):
                    told = subprocess.run(["readelf", "--wide", option, program], capture_output=True, text=True,
                                          check=True).stdout
                    self.assertRegex(told, wanted)
                    if unwanted:
                        self.assertNotRegex(told, unwanted)


if __name__ == "__main__":
    unittest.main()
