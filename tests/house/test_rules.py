"""Proves on made-up trees that the checks of tree.py see what they are to see."""
import unittest

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

    def test_a_name_that_is_no_folder_is_an_error(self):
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

    def test_circles_are_found(self):
        self.assertEqual(tree.circle({"a": ["b"], "b": ["c"], "c": ["a"]}), ["a", "b", "c", "a"])
        self.assertEqual(tree.circle({"a": ["b", "c"], "b": ["c"], "c": []}), [])

    def test_reads_what_cmake_links(self):
        self.assertEqual(tree.dependencies("lyrabox_add_library(x\n  DEPENDS a b_c\n  LIBRARIES Qt6::Core)"), ["a", "b_c"])
        self.assertEqual(tree.dependencies("target_link_libraries(lb_app_shell\n PUBLIC lb_a lb_b Qt6::X)"), ["a", "b"])

    def test_the_picture_has_to_show_every_folder_and_no_other(self):
        faults = tree.picture_against([["upper"], ["lower", "ghost"]], {"upper": ["lower"], "lower": [], "third": []})
        self.assertEqual(faults, ["third: not in the picture", "ghost: not in the table"])

    def test_the_picture_has_to_stand_the_right_way_up(self):
        table = {"upper": ["lower"], "lower": []}
        self.assertEqual(len(tree.picture_against([["lower"], ["upper"]], table)), 1)
        self.assertEqual(len(tree.picture_against([["upper", "lower"]], table)), 1)
        self.assertEqual(tree.picture_against([["lower", "upper"]], table), [])

    def test_400_lines_need_no_reason_and_401_do(self):
        self.assertFalse(tree.is_too_long("x\n" * 400))
        self.assertTrue(tree.is_too_long("x\n" * 401))
        self.assertFalse(tree.is_too_long("// Long because so it is.\n" + "x\n" * 401))
        self.assertTrue(tree.is_too_long("x\n" * 50 + "// Long because so it is.\n" + "x\n" * 401))


if __name__ == "__main__":
    unittest.main()
