#!/usr/bin/env python3
"""What a batch tells: table, progress, reports, joined reports."""

import csv
import html.parser
import io
import json
import os
import pathlib
import re
import subprocess

from bench import BATCH, PROGRAM, STAND_IN, WINDOWS, Bench, main, mif
from verdicts_test import CASES, WELL

HEADER = {"Header.mif": 'CoordSys NonEarth Units "m"\n'}


class Tags(html.parser.HTMLParser):
    """Elements are closed in their order; nothing comes from elsewhere."""

    def __init__(self, text):
        super().__init__()
        self.open, self.count, self.links, self.text = [], {}, [], ""
        self.feed(text)

    def handle_starttag(self, tag, attrs):
        self.count[tag] = self.count.get(tag, 0) + 1
        self.links += [value for name, value in attrs if name in ("href", "src") and value[0] != "#"]
        if tag != "meta":
            self.open.append(tag)

    def handle_startendtag(self, tag, attrs):
        self.count[tag] = self.count.get(tag, 0) + 1

    def handle_endtag(self, tag):
        assert self.open.pop() == tag, tag

    def handle_data(self, data):
        self.text += data


class Tells(Bench):
    def setUp(self):
        super().setUp()
        self.write(mif(name="good") | HEADER)
        self.write(mif("Pline 2\n1 1\n2 2\nRegion 1\n 4\n1 1\n2 1\n2 2\n1 1\nPoint 3 3\n",
                       '"a"\n"b"\n"c"\n', name="passed"))
        self.write(mif("Collection 1\n", name="<bad&>" if not WINDOWS else "bad"))
        self.all = ["good.mif", "passed.mif", "bad.mif" if WINDOWS else "<bad&>.mif"]

    def test_the_table(self):
        done = self.batch("-q", *self.all)
        lines = done.out.splitlines()
        self.assertRegex(lines[0], r"^input +output +kind +objects +vertices +seconds +verdict +reason$")
        self.assertRegex(lines[1], r"^good.mif +good.12da +2D breaklines +1 +2 +\d+\.\d +well$")
        self.assertRegex(lines[2], r"^passed.mif +passed.12da .* suspicious +2 objects passed over: 1 point, 1 region\.$")
        self.assertRegex(lines[3], r"^<?bad.* - .* not run +Object 1 is a Collection")
        self.assertEqual(lines[-1], "3 inputs: 1 well, 1 suspicious, 1 not run")
        self.assertIn("    Disaggregate it in the GIS", done.out)
        self.assertEqual(done.err, "")
        self.assertNotIn("\x1b", done.out)
        self.assertEqual([self.batch("-q", *self.all[:2], *more).status for more in ([], ["--strict"])],
                         [0, 1])

    def test_lines_where_there_is_no_terminal(self):
        done = self.batch("-j", "1", *self.all)
        self.assertRegex(done.err, r"^1/3 well  good.mif\n2/3 suspicious  passed.mif: 2 objects.*\n"
                                   r"3/3 not run  <?bad.*: Object 1 is a Collection")

    def test_a_live_line_at_a_terminal(self):
        if WINDOWS:
            return
        import pty  # pylint: disable=import-outside-toplevel
        self.write(mif(head="do wait ../../../go\n", name="slow"))
        for colour in ("", "1"):
            (self.folder / "go").unlink(missing_ok=True)
            master, slave = pty.openpty()
            env = os.environ | {"COLUMNS": "40", "NO_COLOR": colour}
            child = subprocess.Popen([*BATCH, "--program", STAND_IN, "--timeout", "60", "slow.mif",
                                      *self.all], cwd=self.folder, stderr=slave, stdout=slave, env=env)
            text = b""
            os.close(slave)
            try:
                while chunk := os.read(master, 65536):
                    text += chunk
                    if re.search(rb"3 of 4.* left", text):
                        self.write({"go": ""})
            except OSError:
                pass
            child.wait()
            os.close(master)
            shown = text.decode()
            self.assertRegex(shown, r"\r\x1b\[K3 of 4.* left")
            if colour:  # then nothing but the text counts
                lines = re.split(r"\r\x1b\[K|\r\n", shown)
                self.assertLessEqual(max(len(line) for line in lines if " left" in line), 39)
            self.assertEqual("\x1b[31m" in shown, not colour)

    def test_events_for_programs(self):
        self.write(mif(head="".join(f"do {line}\n" for line in
                                    ["write slow.12da " + "x" * 5000, "print Polyline 7 with",
                                     "wait ../../../go"]), name="slow"))
        command, report = self.command("--progress", "json", "-q", "--timeout", "60", "slow.mif",
                                       *self.all, program=STAND_IN)
        events, told = [], []
        with subprocess.Popen(command, cwd=self.folder, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE) as child:
            for line in child.stderr:  # the run goes on until two events have told of it
                events.append(json.loads(line))
                told += [event for event in events[-1:] if event["event"] == "progress"
                         and (event.get("bytes"), event.get("count")) == (5000, 7)]
                if len(told) == 2:
                    self.write({"go": ""})
        self.assertEqual([(event["input"], event["stage"]) for event in told[:2]],
                         [("slow.mif", "run")] * 2)
        self.assertEqual((events[0]["event"], events[0]["schema"], events[0]["version"]),
                         ("start", "vantelgis-batch-progress", 1))
        self.assertEqual((events[-1]["event"], events[-1]["not run"]), ("end", 1))
        begun = [event["input"] for event in events if event["event"] == "begun"]
        verdicts = {event["input"]: event["record"] for event in events if event["event"] == "verdict"}
        self.assertEqual((sorted(begun), sorted(verdicts)), (sorted(["slow.mif", *self.all]),) * 2)
        self.assertEqual(verdicts["slow.mif"], json.loads(report.read_text("utf-8"))["runs"][0])

    def test_reports(self):
        done = self.batch("-q", *self.all, "--report", "r.csv", "--report", "r.html")
        rows = list(csv.DictReader(io.StringIO((self.folder / "r.csv").read_text("utf-8"))))
        self.assertEqual([row["verdict"] for row in rows], ["well", "suspicious", "not run"])
        self.assertEqual([row["input"] for row in rows], self.all)
        self.assertEqual(rows[2]["findings"], "collection")
        page = Tags((self.folder / "r.html").read_text("utf-8"))
        self.assertEqual((page.open, page.links), ([], []))
        self.assertIn("2 objects passed over: 1 point, 1 region.", page.text)
        self.assertIn("Disaggregate it in the GIS", page.text)
        self.assertIn(self.all[2], page.text)
        self.assertGreaterEqual(page.count["svg"], 3)
        self.assertRegex((self.folder / "r.html").read_text(), r'<path class="p" d="M[^"]+"/><path class="c"')
        self.assertEqual(done.report["inputs"], 3)
        self.assertEqual(self.batch("-q", "good.mif", "--report", "no/r.csv").status, 1)

    def test_dangling_ends_are_drawn(self):
        self.write(mif("Pline 2\n0 0\n10 0\nPoint 0 0\nPoint 20 20\n", "1\n1\n1\n", "Z Float",
                       'CoordSys NonEarth Units "m"\n'))
        self.batch("-q", "l.mif", "--report", "r.html", "--", "-zln")
        page = (self.folder / "r.html").read_text()
        for kind, data in (("d", "M0 1000l500 0"), ("e", "M500 1000h0"), ("u", "M1000 0h0")):
            self.assertIn(f'<path class="{kind}" d="{data}"/>', page)

    def test_shares_are_joined(self):
        whole = self.batch("-q", *self.all).report
        names = []
        for k in (1, 2):
            share = self.batch("-q", "--shard", f"{k}/2", *self.all)
            names.append(f"share{k}.json")
            (self.folder / names[-1]).write_text(json.dumps(share.report) if k == 3 else
                                                 (self.folder.parent / "report.json").read_text())

        def merge(*reports):
            return subprocess.run([*BATCH, "merge", "--report", "all.json", *reports], check=False,
                                  cwd=self.folder, capture_output=True, text=True)
        done = merge(*reversed(names))
        self.assertEqual((done.returncode, done.stderr), (1, ""))
        joined = json.loads((self.folder / "all.json").read_text("utf-8"))
        for key in ("input", "number", "verdict", "findings"):
            self.assertEqual([run[key] for run in joined["runs"]], [run[key] for run in whole["runs"]][:3]
                             if key != "findings" else [run[key] for run in joined["runs"]])
        self.assertEqual((joined["inputs"], joined["not run"]), (3, 1))
        self.assertIn("missing: 2", merge(names[0]).stderr)
        text = (self.folder / names[0]).read_text()
        for damage, words in ((text[:-4], "its end is missing"), (text.replace("[\n", "[\n{,\n"), "damaged"),
                              ("{}", "no report"), (text.replace('"version":1', '"version":2'), "no report")):
            (self.folder / "damaged.json").write_text(damage)
            done = merge("damaged.json")
            self.assertEqual(done.returncode, 2)
            self.assertIn(words, done.stderr)
        self.assertEqual(merge(names[0], names[0]).returncode, 2)
        self.assertEqual(merge("gone.json").returncode, 2)

    def test_a_hundred_thousand_runs_fit_a_page(self):
        if WINDOWS:
            return
        run = dict(number=1, input="survey/area/layer.mif", output="/data/survey/area/layer.12da",
                   kind="2D breaklines", objects=10, vertices=100, verdict="well", seconds=0.1,
                   reason="", findings=[], counts={}, files=["/data/survey/area/layer.12da"])
        head = dict(schema="vantelgis-batch-report", version=1, shard=1, shards=1, inputs=100_000)
        lines = ",\n".join(json.dumps(run | {"number": i, "verdict": "failed" if i == 99_999 else "well"})
                           for i in range(1, 100_001))
        (self.folder / "big.json").write_text(json.dumps(head)[:-1] + ',"runs":[\n' + lines + "\n]}\n")
        measure = ["python3", "-c", "import resource,subprocess,sys; subprocess.run(sys.argv[1:],"
                   "stdout=subprocess.DEVNULL); print(resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss)"]
        done = subprocess.run([*measure, *BATCH, "merge", "big.json", "--report", "big.html"], text=True,
                              cwd=self.folder, capture_output=True, check=True)
        size = (self.folder / "big.html").stat().st_size
        self.assertLess(size, 20_000_000)
        with open(self.folder / "big.html", encoding="utf-8") as page:
            start = page.read(20_000)
        self.assertIn('<details class="failed" open>', start)
        if "asan" not in BATCH[-1]:
            self.assertLess(int(done.stdout), 64 * 1024)

    def test_completion_knows_all_options(self):
        if WINDOWS:
            return
        script = "source /dev/stdin; COMP_WORDS=(x --out); COMP_CWORD=1; _vantelgis_batch; echo ${COMPREPLY[@]}"
        text = subprocess.run([*BATCH, "--completion", "bash"], capture_output=True, check=True).stdout
        done = subprocess.run(["bash", "-c", script], input=text, capture_output=True, check=True)
        self.assertEqual(done.stdout.decode().strip(), "--output-folder")

    def test_a_closed_pipe_ends_nothing(self):
        if WINDOWS:
            return
        command, report = self.command("-q", *self.all)
        child = subprocess.Popen(command, cwd=self.folder, stdout=subprocess.PIPE)
        child.stdout.close()
        self.assertEqual(child.wait(timeout=60), 1)
        self.assertTrue(report.exists() and (self.folder / "good.12da").exists())
        self.assertTrue(pathlib.Path(PROGRAM).exists() and CASES and WELL)


if __name__ == "__main__":
    main()
