"""What comments.py sees and writes, in a tree of its own."""

import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPT = pathlib.Path(__file__).resolve().parent / "comments.py"
HEAD = "row,kernel,metric,error,result,arguments,order,got,wanted,inputs,method\n"
RECORDS = (
    HEAD
    + "sExp,LA,ulp,2.64,0,-0x1.8p+4,0,0x1p-25,4.2e-08,100,all\n"
    + "sExp,HA,ulp,0.75,0,0x1p+0,0,0x1p-3,0.2,100,all\n"
    + "dModf,HA,exact,0,0,,0,,,100,sampled\n"
)
KERNELS = """// e^x.
template <class V, Level L>
struct Exp;

// In one precision.
template <Single V>
struct Exp<V, Level::LA> : ExpSingle<V> {
};

// Four rows.
template <Single V, Level L>
struct Exp<V, L> {
};

template <Double V, Level L>
struct Exp<V, L> {
};
"""


class Comments(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.TemporaryDirectory()
        self.addCleanup(self.folder.cleanup)
        self.root = pathlib.Path(self.folder.name)
        (self.root / "tests/accuracy/recorded").mkdir(parents=True)
        (self.root / "src/zym/kernels/explog").mkdir(parents=True)
        self.records = self.root / "tests/accuracy/recorded/explog.csv"
        self.header = self.root / "src/zym/kernels/explog/exp.h"
        self.records.write_text(RECORDS)
        self.header.write_text(KERNELS)

    def run_script(self, command):
        return subprocess.run([sys.executable, SCRIPT, command, self.root], capture_output=True, text=True)

    def faults(self):
        run = self.run_script("check")
        self.assertEqual(run.returncode, 1)
        return run.stderr

    def written(self):
        self.assertEqual(self.run_script("write").returncode, 0)
        self.assertEqual(self.run_script("check").returncode, 0)
        return self.header.read_text()

    def test_line_goes_above_its_struct(self):
        text = self.written()
        self.assertIn("precision.\n// sExp LA: 2.64 ulp at -0x1.8p+4\ntemplate <Single V>\n", text)
        self.assertIn("// Four rows.\n// sExp HA: 0.75 ulp at 0x1p+0\ntemplate <Single V, Level L>\n", text)
        self.assertEqual(text.count("// sExp"), 2)

    def test_missing_line_is_told_by_row_and_kernel(self):
        self.assertIn("sExp LA is recorded in explog.csv and stated nowhere", self.faults())

    def test_changed_record_makes_the_line_wrong_and_write_mends_it(self):
        self.written()
        self.records.write_text(RECORDS.replace("2.64", "2.71"))
        self.assertIn("exp.h:6: // sExp LA: 2.64 ulp", self.faults())
        self.assertIn("// sExp LA: 2.71 ulp at -0x1.8p+4\n", self.written())

    def test_edited_witness_is_seen(self):
        self.header.write_text(self.written().replace("-0x1.8p+4", "-0x1.9p+4"))
        self.assertIn("the record says // sExp LA: 2.64 ulp at -0x1.8p+4", self.faults())

    def test_line_without_record_is_seen_and_goes(self):
        text = self.written()
        self.header.write_text(text + "// sExp EP: 12 bits at 0x1p+1\n")
        self.assertIn("sExp EP has no record", self.faults())
        self.assertEqual(self.written(), text)

    def test_line_that_stands_twice_is_seen(self):
        self.header.write_text(self.written() + "// sExp LA: 2.64 ulp at -0x1.8p+4\n")
        self.assertIn("sExp LA stands twice", self.faults())

    def test_mark_without_error_is_filled_in_where_it_stands(self):
        self.header.write_text("// sExp LA:\nusing Narrow = int;\n" + KERNELS)
        self.assertTrue(self.written().startswith("// sExp LA: 2.64 ulp at -0x1.8p+4\nusing"))

    def test_kernel_without_struct_is_told(self):
        self.header.write_text("// nothing\n")
        run = self.run_script("write")
        self.assertEqual(run.returncode, 1)
        self.assertIn("sExp LA: no struct found", run.stderr)

    def test_several_arguments_orders_and_second_results_are_stated(self):
        self.records.write_text(HEAD + "sExp,LA,ulp,1.5,1,0x1p+0 0x1p+1,3,0x1p+0,1,9,all\n")
        self.assertIn("// sExp LA: 1.5 ulp at order 3, 0x1p+0, 0x1p+1 (second result)\n", self.written())

    def test_no_records_at_all_is_a_fault(self):
        self.records.write_text(HEAD)
        self.assertIn("no records found", self.faults())


if __name__ == "__main__":
    unittest.main()
