"""Plants violations in a tree of its own and expects scripts/check-layering to find exactly them."""

import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

SCRIPT = Path(__file__).resolve().parents[2] / "scripts" / "check-layering"

LINKS = {
    "KrMultilingual": "PUBLIC Qt6::Core",
    "KrParameterDefinition": "PUBLIC Qt6::Core Kr::Multilingual",
    "KrDatatype": "PUBLIC Qt6::Core",
    "LmUtilities": "PUBLIC Qt6::Core",
    "KrFirmware": "PUBLIC Kr::ParameterDefinition Kr::ParameterData PRIVATE Kr::Datatype # Kr::LmUtilities",
    "ParameterData": "",
}


class CheckLayering(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        for library, links in LINKS.items():
            self.write(f"platform/{library}/CMakeLists.txt",
                       f"kr_add_platform_library({library} {links})")

    def write(self, path, text):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text + "\n", encoding="utf-8")

    def check(self):
        result = subprocess.run([sys.executable, str(SCRIPT), str(self.root)],
                                capture_output=True, text=True, check=False)
        self.assertEqual(result.stderr, "")
        lines = result.stdout.splitlines()
        self.assertEqual(result.returncode, 1 if lines else 0)
        return lines

    def assert_allowed(self, path, include):
        self.write(path, "#include " + include)
        self.assertEqual(self.check(), [])

    def assert_refused(self, path, include, reason):
        self.write(path, "#include " + include)
        self.assertEqual(self.check(), [f"{path}:1: includes {include[1:-1]}: {reason}"])

    def test_allowed(self):
        for path, include in (
            ("value/A.cpp", "<KrParameterInstance/ParameterData.h>"),
            ("value/A.cpp", "<KrParameterDefinition/ParameterAddress.h>"),
            ("value/A.cpp", "<vector>"),
            ("value/A.cpp", "<QtCore/QString>"),
            ("value/A.cpp", '"value/B.h"'),
            ("instance/A.cpp", '"value/B.h"'),
            ("container/A.cpp", '"instance/B.h"'),
            ("container/A.cpp", '"value/B.h"'),
            ("container/A.cpp", '"snapshot/ParameterFilterElement.h"'),
            ("snapshot/A.cpp", "<KrParameterInstance/ParameterContainer.h>"),
            ("apps/krparameter/A.cpp", '"apps/host/B.h"'),
            ("apps/krparameter/A.cpp", "<KrFirmware/ServoDriveFirmware.h>"),
            ("platform/KrFirmware/include/KrFirmware/A.h",
             "<KrParameterDefinition/ParameterDefinition.h>"),
            ("platform/KrFirmware/src/A.cpp", "<KrParameterInstance/ParameterData.h>"),
            ("platform/KrFirmware/src/A.cpp", "<KrDatatype/SimpleType.h>"),
            ("tests/value/A.cpp", '"value/B.h"'),
            ("tests/platform/A.cpp", '"platform/KrFirmware/src/B.h"'),
            ("fuzz/A.cpp", '"instance/B.h"'),
            ("benchmarks/A.cpp", '"value/B.h"'),
            ("build/release/A.cpp", '"container/B.h"'),
        ):
            with self.subTest(path=path, include=include):
                self.assert_allowed(path, include)

    def test_value_sees_no_other_subsystem(self):
        self.assert_refused("value/A.h", '"instance/B.h"', "value does not see instance")

    def test_snapshot_sees_no_other_subsystem(self):
        self.assert_refused("snapshot/A.h", '"container/B.h"', "snapshot does not see container")

    def test_instance_does_not_see_container(self):
        self.assert_refused("instance/A.cpp", '"container/B.h"', "instance does not see container")

    def test_container_sees_of_snapshot_the_filter_element_only(self):
        self.assert_refused("container/A.cpp", '"snapshot/B.h"', "container does not see snapshot")

    def test_relative_include_is_followed(self):
        self.write("instance/B.h", "")
        self.assert_refused("value/A.cpp", '"../instance/B.h"', "value does not see instance")

    def test_indented_directive_is_found(self):
        self.write("value/A.cpp", '\n  #  include "container/B.h"')
        self.assertEqual(
            self.check(),
            ["value/A.cpp:2: includes container/B.h: value does not see container"])

    def test_exported_headers_see_no_internals(self):
        self.assert_refused("include/KrParameterInstance/A.h", '"value/B.h"',
                            "include does not see value")

    def test_parameter_data_needs_qt_alone(self):
        self.assert_refused("include/KrParameterInstance/ParameterData.h",
                            "<KrDatatype/SimpleType.h>", "ParameterData.h needs Qt Core alone")

    def test_apps_see_no_internals(self):
        self.assert_refused("apps/host/A.cpp", '"value/B.h"', "apps does not see value")
        self.assert_refused("apps/host/A.cpp", '"platform/KrFirmware/src/B.h"',
                            "a private header of the platform")

    def test_platform_does_not_see_the_library(self):
        self.assert_refused("platform/KrFirmware/src/A.cpp",
                            "<KrParameterInstance/ParameterContainer.h>",
                            "the platform never includes the library")

    def test_platform_does_not_see_internals(self):
        self.assert_refused("platform/KrDatatype/src/A.cpp", '"value/B.h"',
                            "the platform never includes the library")

    def test_only_linkers_of_parameter_data_see_it(self):
        self.assert_refused("platform/KrDatatype/src/A.cpp",
                            "<KrParameterInstance/ParameterData.h>",
                            "does not link ParameterData")

    def test_platform_library_sees_what_it_links(self):
        self.assert_refused("platform/KrDatatype/src/A.cpp", "<KrFirmware/A.h>",
                            "KrDatatype does not link KrFirmware")
        self.write("platform/KrDatatype/src/A.cpp", "")
        self.assert_refused("platform/KrFirmware/src/A.cpp", "<LmUtilities/IniParser.h>",
                            "KrFirmware does not link LmUtilities")

    def test_public_header_needs_public_link(self):
        self.assert_refused("platform/KrFirmware/include/KrFirmware/A.h",
                            "<KrDatatype/SimpleType.h>",
                            "a public header needs KrDatatype to be linked publicly")

    def test_private_header_of_another_library(self):
        self.assert_refused("platform/KrFirmware/src/A.cpp", '"platform/KrDatatype/src/B.h"',
                            "a private header of KrDatatype")

    def test_public_header_keeps_from_private_ones(self):
        self.write("platform/KrDatatype/src/B.h", "")
        self.assert_refused("platform/KrDatatype/include/KrDatatype/A.h", '"../../src/B.h"',
                            "a public header includes a private one")

    def test_folder_without_rule(self):
        self.assert_refused("extra/A.cpp", '"value/B.h"', "no rule for the folder extra")

    def test_every_violation_is_reported(self):
        self.write("value/A.cpp", '#include "instance/B.h"\n#include "container/B.h"')
        self.write("snapshot/A.cpp", '#include "value/B.h"')
        self.assertEqual(len(self.check()), 3)


if __name__ == "__main__":
    unittest.main()
