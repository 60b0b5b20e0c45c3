"""What stands in several of the files that describe the program is the same in all of them.

BROOMTIDE   the program
"""

import configparser
import re
import unittest
import xml.etree.ElementTree as ElementTree
from pathlib import Path

from helptext import WINDOW, output

ROOT = Path(__file__).resolve().parents[2]
PACKAGING = ROOT / "packaging"


class Metadata(unittest.TestCase):
    def setUp(self):
        desktop = configparser.RawConfigParser(delimiters="=")
        desktop.optionxform = str
        desktop.read(PACKAGING / "broomtide.desktop", encoding="utf-8")
        self.entry = desktop["Desktop Entry"]
        [self.metainfo_file] = PACKAGING.glob("*.metainfo.xml")
        self.metainfo = ElementTree.parse(self.metainfo_file).getroot()

    def texts(self, name):
        """Each translation of an element of the metainfo, by its language."""
        language = "{http://www.w3.org/XML/1998/namespace}lang"
        return {element.get(language): element.text for element in self.metainfo.findall(name)}

    def translations(self, key):
        found = {re.fullmatch(rf"{key}(?:\[(\w+)\])?", name): text for name, text in self.entry.items()}
        return {match[1]: text for match, text in found.items() if match}

    def test_the_version_is_the_same_everywhere(self):
        version = output(WINDOW, "--version").split()[1]
        self.assertEqual(self.metainfo.find("releases/release").get("version"), version)
        self.assertRegex((PACKAGING / "debian/changelog").read_text(), rf"\Abroomtide \({re.escape(version)}-1\) ")

    def test_the_window_is_known_by_its_desktop_entry(self):
        shell = (ROOT / "src/ui/shell/BroomtideApp.cpp").read_text()
        [name] = re.findall(r'setApplicationName\(QStringLiteral\("(.+?)"\)', shell)
        [file_name] = re.findall(r'setDesktopFileName\(QStringLiteral\("(.+?)"\)', shell)
        self.assertTrue((PACKAGING / f"{file_name}.desktop").exists())
        self.assertEqual(self.entry["StartupWMClass"], name)
        self.assertEqual(self.metainfo.find("launchable").text, f"{file_name}.desktop")

    def test_names_of_files_are_those_that_are_looked_for(self):
        self.assertEqual(self.metainfo_file.name, f"{self.metainfo.find('id').text}.metainfo.xml")
        self.assertTrue((PACKAGING / f"icons/{self.entry['Icon']}.svg").exists())
        self.assertEqual(self.metainfo.find("icon").text, self.entry["Icon"])

    def test_the_desktop_entry_says_the_same_in_every_language(self):
        self.assertEqual(self.texts("summary"), self.translations("Comment"))
        for key in "Name", "GenericName", "Comment", "Keywords":
            self.assertEqual(self.translations(key).keys(), {None, "de", "zh_CN"}, key)

    def test_every_paragraph_is_there_in_every_language(self):
        counts = {}
        for element in self.metainfo.find("description").iter():
            if element.tag in ("p", "li"):
                language = element.get("{http://www.w3.org/XML/1998/namespace}lang")
                counts[language] = counts.get(language, 0) + 1
        self.assertEqual(counts.keys(), {None, "de", "zh_CN"})
        self.assertEqual(len(set(counts.values())), 1, counts)


if __name__ == "__main__":
    unittest.main()
