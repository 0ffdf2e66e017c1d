import importlib.util
import json
import os
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
SCRIPT = os.path.join(HERE, "..", "..", "scripts", "bench_report.py")
module_spec = importlib.util.spec_from_file_location("bench_report", SCRIPT)
bench_report = importlib.util.module_from_spec(module_spec)
module_spec.loader.exec_module(bench_report)


def run(name, rep, p50, p90, allocs=0.0, **extra):
    entry = {"name": name, "run_name": name, "run_type": "iteration", "repetition_index": rep,
             "p50_us": p50, "p90_us": p90, "wall_p50_us": p50 + 1, "allocs_per_frame": allocs}
    entry.update(extra)
    return entry


def raw(*entries):
    aggregate = {"name": "floor/point_sample/1080p/manual_time_median", "run_type": "aggregate",
                 "run_name": "floor/point_sample/1080p/manual_time", "p50_us": 999}
    return {"benchmarks": list(entries) + [aggregate]}


FLOOR = "floor/point_sample/1080p/manual_time"
CAMSHIFT = "peer/camshift/1080p/manual_time"
TRACKING = "process_plovix/tracking/1080p/manual_time"
BLOCK = "process_plovix/lost_block/1080p/iterations:20/manual_time"


class RowsTest(unittest.TestCase):
    def rows(self, data):
        return {r["case"]: r for r in bench_report.build_rows(bench_report.group_runs(data))}

    def test_medians_over_repetitions_and_ratios(self):
        rows = self.rows(raw(
            run(FLOOR, 0, 100, 120), run(FLOOR, 1, 300, 330), run(FLOOR, 2, 200, 210),
            run(CAMSHIFT, 0, 800, 900), run(CAMSHIFT, 1, 800, 900),
            run(TRACKING, 0, 50, 90, 2.0), run(TRACKING, 1, 70, 60, 3.0), run(TRACKING, 2, 60, 80, 2.0)))
        floor = rows["floor/point_sample/1080p"]
        self.assertEqual((floor["median_us"], floor["p90_us"], floor["repetitions"]), (200, 210, 3))
        tracking = rows["process_plovix/tracking/1080p"]
        # Each column is the median of its own repetition values, not the p90 of one repetition.
        self.assertEqual((tracking["median_us"], tracking["p90_us"], tracking["allocs_per_frame"]), (60, 80, 2.0))
        self.assertAlmostEqual(tracking["ratio_to_floor"], 0.3)
        self.assertAlmostEqual(tracking["ratio_to_camshift"], 0.075)

    def test_without_peers_there_is_no_camshift_ratio(self):
        rows = self.rows(raw(run(FLOOR, 0, 100, 120), run(BLOCK, 0, 250, 300)))
        block = rows["process_plovix/lost_block/1080p"]
        self.assertIsNone(block["ratio_to_camshift"])
        self.assertEqual(block["ratio_to_floor"], 2.5)
        line = bench_report.render_table(list(rows.values())).splitlines()[2]
        self.assertEqual(line.split(), ["process_plovix/lost_block/1080p", "250.0", "300.0", "2.50", "-", "0.00"])

    def test_errors_are_kept_as_rows(self):
        failed = {"name": BLOCK, "run_name": BLOCK, "run_type": "iteration", "error_occurred": True,
                  "error_message": "3 frames had an unexpected result"}
        rows = self.rows(raw(run(FLOOR, 0, 100, 120), failed))
        self.assertEqual(rows["process_plovix/lost_block/1080p"]["error"], "3 frames had an unexpected result")
        self.assertIn("error: 3 frames had an unexpected result", bench_report.render_table(list(rows.values())))

    def test_session_heap_is_not_a_row(self):
        heap = {"name": "heap/session/1080p/iterations:1/repeats:1/manual_time", "run_type": "iteration",
                "run_name": "heap/session/1080p/iterations:1/repeats:1/manual_time",
                "peak_heap_bytes": 653328.0, "heap_calls": 380.0, "live_after_destroy_bytes": 0.0}
        cases = bench_report.group_runs(raw(run(FLOOR, 0, 100, 120), heap))
        self.assertNotIn("heap/session/1080p", [r["case"] for r in bench_report.build_rows(cases)])
        self.assertEqual(bench_report.session_heap(cases),
                         {"peak_bytes": 653328, "allocations": 380, "live_after_destroy_bytes": 0})


class TableTest(unittest.TestCase):
    def test_fails_when_a_case_failed_and_writes_json(self):
        failed = {"name": TRACKING, "run_name": TRACKING, "run_type": "iteration", "error_occurred": True,
                  "error_message": "boom"}
        with tempfile.TemporaryDirectory() as d:
            raw_path = os.path.join(d, "raw.json")
            out = os.path.join(d, "out", "bench.json")
            with open(raw_path, "w") as f:
                json.dump(raw(run(FLOOR, 0, 100, 120), failed), f)
            self.assertEqual(bench_report.main(["table", raw_path, "--json", out]), 1)
            with open(out) as f:
                written = json.load(f)
        self.assertEqual([c["case"] for c in written["cases"]],
                         ["floor/point_sample/1080p", "process_plovix/tracking/1080p"])


class CallgrindTest(unittest.TestCase):
    def test_reads_the_totals_line(self):
        text = "version: 1\ncmd: plovix-bench\nevents: Ir\nfl=(1) a.c\nfn=(1) f\n3 100\nsummary: 11055256\ntotals: 11055256\n"
        self.assertEqual(bench_report.callgrind_total(text), 11055256)

    def test_rejects_output_without_totals(self):
        with self.assertRaises(ValueError):
            bench_report.callgrind_total("events: Ir\n")


if __name__ == "__main__":
    unittest.main()
