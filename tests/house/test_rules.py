"""Tests the checks of tree.py and functions.py on made-up trees and sources that break the rules."""
import pathlib
import unittest

import functions
import tree

DOCUMENT = """# Architecture

## Layers

```
app/shell     main        (sees all)
upper   other
lower         the ground
```

| Folder under `src/` | Holds | Includes |
|---|---|---|
| `lower` | things | – |
| `app/other` | things | |
| `upper` | things, more | other, lower |
| `app/shell` | main | all |
"""


class Rules(unittest.TestCase):
    def setUp(self):
        self.table = tree.layers(DOCUMENT)

    def test_reads_the_table(self):
        self.assertEqual(self.table, {"lower": [], "app/other": [], "upper": ["app/other", "lower"],
                                      "app/shell": ["lower", "app/other", "upper"]})

    def test_a_name_that_is_not_a_folder_is_an_error(self):
        with self.assertRaises(ValueError):
            tree.layers(DOCUMENT.replace("other, lower", "nowhere"))

    def test_reads_the_picture(self):
        self.assertEqual(tree.picture(DOCUMENT), [["app/shell", "main"], ["upper", "other"], ["lower"]])

    def test_an_include_upwards_is_a_fault(self):
        sources = {"lower/A.h": '#include "upper/B.h"\n', "upper/B.h": '#include "lower/A.h"\n#include <x/y.h>\n'}
        self.assertEqual(tree.includes_against(self.table, sources), ["lower/A.h: lower may not include upper"])

    def test_a_folder_without_a_row_is_a_fault(self):
        self.assertEqual(len(tree.includes_against(self.table, {"new/A.h": ""})), 1)

    def test_what_is_allowed_through_another_is_allowed(self):
        table = {"a": [], "b": ["a"], "c": ["b"]}
        self.assertEqual(tree.includes_against(table, {"c/C.cpp": '#include "a/A.h"\n'}), [])

    def test_cycles_are_found(self):
        self.assertEqual(tree.circle({"a": ["b"], "b": ["c"], "c": ["a"]}), ["a", "b", "c", "a"])
        self.assertEqual(tree.circle({"a": ["b", "c"], "b": ["c"], "c": []}), [])

    def test_reads_what_cmake_links(self):
        self.assertEqual(tree.dependencies("lyrabox_add_library(x\n  DEPENDS a b_c\n  LIBRARIES Qt6::Core)"), ["a", "b_c"])
        self.assertEqual(tree.dependencies("target_link_libraries(lb_app_shell\n PUBLIC lb_a lb_b Qt6::X)"), ["a", "b"])

    def test_the_picture_must_show_every_folder_and_no_other(self):
        faults = tree.picture_against([["upper"], ["lower", "ghost"]], {"upper": ["lower"], "lower": [], "third": []})
        self.assertEqual(faults, ["third: not in the picture", "ghost: not in the table"])

    def test_the_picture_must_be_the_right_way_up(self):
        table = {"upper": ["lower"], "lower": []}
        self.assertEqual(len(tree.picture_against([["lower"], ["upper"]], table)), 1)
        self.assertEqual(len(tree.picture_against([["upper", "lower"]], table)), 1)
        self.assertEqual(tree.picture_against([["lower", "upper"]], table), [])

    def test_400_lines_need_no_reason_and_401_do(self):
        self.assertFalse(tree.is_too_long("x\n" * 400))
        self.assertTrue(tree.is_too_long("x\n" * 401))
        self.assertFalse(tree.is_too_long("// Long because so it is.\n" + "x\n" * 401))
        self.assertTrue(tree.is_too_long("x\n" * 50 + "// Long because so it is.\n" + "x\n" * 401))

    def test_one_name_in_two_folders_is_doubled(self):
        paths = [pathlib.Path(p) for p in ("a/Probe.cpp", "b/Probe.cpp", "b/Probe.h", "c/Other.h")]
        self.assertEqual(tree.doubled_names(paths), ["Probe.cpp"])

    def test_a_system_header_is_a_fault_outside_platform(self):
        sources = {"platform/lower/A.cpp": "#include <unistd.h>\n", "upper/B.h": "#include <QString>\n#include <vector>\n",
                   "upper/B.cpp": "#include <cmath>\n#  include <sys/stat.h>\n"}
        self.assertEqual(tree.system_headers(sources), ["upper/B.cpp: <sys/stat.h>"])

    def test_a_source_includes_its_own_header_first(self):
        sources = {"a/A.h": "", "a/A.cpp": '// It.\n#include <vector>\n#include "a/A.h"\n',
                   "a/B.h": "", "a/B.cpp": '#pragma x\n#include "a/B.h"\n#include <vector>\n', "a/C.cpp": "#include <vector>\n"}
        self.assertEqual(tree.own_header_not_first(sources), ["a/A.cpp"])


def body(lines):
    return "{\n" + "    x = 1;\n" * (lines - 2) + "}\n"


class Functions(unittest.TestCase):
    def names(self, text):
        return [f.name for f in functions.functions(text)]

    def lengths(self, text):
        return [f.length for f in functions.functions(text)]

    def test_the_length_goes_from_the_declaration_to_the_closing_brace(self):
        text = "int x;\n\nstatic int f(int a,\n             int b)\n" + body(10)
        self.assertEqual([(f.name, f.line, f.length) for f in functions.functions(text)], [("f", 3, 12)])

    def test_60_lines_need_no_reason_and_61_do(self):
        self.assertEqual(functions.too_long("void f()\n" + body(59)), [])
        self.assertEqual([f.name for f in functions.too_long("void f()\n" + body(60))], ["f"])

    def test_a_reason_is_in_the_comment_right_above(self):
        function = "void f()\n" + body(60)
        self.assertEqual(functions.too_long("/// Does it.\n/// Long because it is one table.\n" + function), [])
        self.assertEqual(len(functions.too_long("// Long because of g().\nint x;\n" + function)), 1)
        self.assertEqual(len(functions.too_long("// Long because of g().\n\n" + function)), 1)

    def test_finds_functions_in_namespaces_and_classes(self):
        text = ("namespace a::b {\nnamespace {\nclass C final : public D<int (*)()> {\n    Q_OBJECT\n"
                "    Q_PROPERTY(int p READ p)\npublic:\n    C() {}\n    int p() const { return 1; }\n"
                "    struct S {\n        bool operator==(const S &) const { return true; }\n    };\n};\n}\n"
                'extern "C" {\nint e() { return 0; }\n}\n}\n')
        self.assertEqual(self.names(text), ["C", "p", "operator==", "e"])
        self.assertEqual(self.lengths(text), [1, 1, 1, 1])

    def test_lambdas_and_classes_within_a_function_belong_to_it(self):
        text = "void f()\n{\n    struct S { int g() { return 1; } };\n    auto h = [] { return 2; };\n}\n"
        self.assertEqual([(f.name, f.length) for f in functions.functions(text)], [("f", 5)])

    def test_initialisers_are_not_functions(self):
        text = ("constexpr int a[] = {1, 2};\nconst std::array b{f(1), f(2)};\nenum class E { one, two };\n"
                "C::C(int x)\n    : m_a{x}, m_b(x), m_c{}\n{\n    g();\n}\n")
        self.assertEqual([(f.name, f.length) for f in functions.functions(text)], [("C::C", 5)])

    def test_braces_in_literals_comments_and_macros_do_not_count(self):
        text = ("#define OPEN {\nvoid f()\n{\n    // {\n    /* { */\n    a = \"{\\\"\" + R\"x({\n)x\";\n    b = '{' + 1'000;\n}\n"
                "void g() {}\n")
        self.assertEqual([(f.name, f.length) for f in functions.functions(text)], [("f", 8), ("g", 1)])


if __name__ == "__main__":
    unittest.main()
