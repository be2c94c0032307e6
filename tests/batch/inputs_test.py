#!/usr/bin/env python3
"""All ways of naming inputs and outputs, and what is refused before anything runs."""

import os
import subprocess

from bench import BATCH, WINDOWS, Bench, archive, main, mif, shp, string3d

HEADER = {"Header.mif": 'CoordSys NonEarth Units "m"\n'}
POINTS = "Point 300000 6200000\nPoint 300010.5 6200020\n"


class Inputs(Bench):
    def setUp(self):
        super().setUp()
        self.write(mif(name="a") | mif(name="b") | HEADER, "d")
        self.write(mif(name="c") | mif(name="a_dangles") | mif(name="a") | HEADER, "d/sub")
        self.write(archive(string3d()) | shp(name="s"), "d")
        self.write(mif(name="hidden"), "d/.git")

    def looked_at(self, *arguments, text=None, **more):
        done = self.batch("--check", "-q", *arguments, text=text, **more)
        return [run["input"].replace("\\", "/") for run in done.runs]

    def test_names_folders_wildcards_and_lists(self):
        self.write(mif(name="a[1]") | mif(name="a1") | HEADER, "w")
        self.write({"list.txt": b"\xef\xbb\xbf# layers\r\n\r\n  d/a.mif \r\nd/b.mif\n@x\nd/c*.mif"})
        all_four = ["d/a.mif", "d/b.mif", "d/s.shp"]
        below = ["d/sub/a.mif", "d/sub/c.mif"]
        absolute = str(self.folder / "d" / "a.mif").replace("\\", "/")
        cases = [
            (["d/a.mif"], ["d/a.mif"]),
            (["d"], all_four),
            (["-r", "d"], [*all_four, *below]),
            (["-r", "d", "--include", "[ac].*", "--exclude", "sub"], ["d/a.mif"]),
            (["-r", "d", "--exclude", "*.shp", "--exclude", "b*"], ["d/a.mif", *below]),
            (["d", "--", "-mif"], ["d/l.12da"]),
            (["d/[!b].mif"], ["d/a.mif"]),
            (["d/?.m*f"], ["d/a.mif", "d/b.mif"]),
            (["d/**/c.mif"], ["d/sub/c.mif"]),
            (["w/a[1].mif"], ["w/a[1].mif"]),
            (["w/a[!2].mif"], ["w/a1.mif"]),
            (["@list.txt"], ["d/a.mif", "d/b.mif", "@x", "d/c*.mif"]),
            (["d/a.mif", "./d//a.mif", "d/sub/../a.mif", absolute], ["d/a.mif"]),
            (["d/a.mif", "d/a.mid", "d/Header.mif", "d/s.dbf", "d/s.shp"], ["d/a.mif", "d/s.shp"]),
            (["d/sub/a.mif", "d/sub/a_dangles.mif"], ["d/sub/a.mif"]),
            (["d/Header.mif"], ["d/Header.mif"]),
        ]
        for arguments, expected in cases:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.looked_at(*arguments), expected)
        listed = "d/b.mif\n# no\nd/a.mif"
        self.assertEqual(self.looked_at("-", text=listed), ["d/b.mif", "d/a.mif"])
        self.assertEqual(self.looked_at("-", "-0", text=listed.replace("\n", "\0").replace("# no", "# x")),
                         ["d/b.mif", "# x", "d/a.mif"])

    def test_shares_are_equal_and_stable(self):
        names = [f"n{i}" for i in range(7)]
        for name in names:
            self.write(mif(name=name), "n")
        shares = [self.looked_at("n", "--shard", f"{k}/3") for k in (1, 2, 3)]
        self.assertEqual([len(share) for share in shares], [3, 2, 2])
        self.assertEqual(sorted(sum(shares, [])), [f"n/{name}.mif" for name in names])
        self.assertEqual(self.looked_at("d/a.mif", "--shard", "2/2"), [])
        self.assertEqual(self.batch("--check", "d/a.mif", "--shard", "2/2").status, 0)

    def test_what_is_refused(self):
        os.link(self.folder / "d/a.mif", self.folder / "d/twin.mif") if not WINDOWS else None
        self.write(mif(name="A"), "case")
        self.write(shp(name="a"), "case")
        self.write(mif(name="a"), "other")
        self.write(archive(string3d("XS_1"), name="x") | archive(string3d("xs_2") + string3d("XS_1"), name="y"), "xs")
        cases = [
            ([], "no input is named"),
            (["--recrusive", "d"], "did you mean --recursive?"),
            (["-zln", "d"], "there is no option -zln"),
            (["d", "-j", "0"], "-j needs"),
            (["d", "-j", "many"], "many"),
            (["d", "--timeout", "0"], "--timeout needs"),
            (["d", "--shard", "4/3"], "--shard needs"),
            (["d", "--look", "twice"], "--look is"),
            (["d", "--to", "dwg"], "--to knows"),
            (["d", "--progress", "loud"], "--progress is"),
            (["d", "--report", "x.pdf"], "a report ends in"),
            (["d", "--pair", "{stem}_p.mif={stem}.mif"], "put \"-- -zln\""),
            (["d", "--pair", "x"], "--pair needs"),
            (["d", "--name", "{what}.12da"], "--name knows"),
            (["d", "--name", "x/{stem}"], "--name may not"),
            (["d", "--own-projection", "--", "Header.mif"], "both name the projection"),
            (["d", "--program", "./nothing"], "there is no converter"),
            (["@nothing.txt"], "can't be read"),
            (["w*", "--check"], None),
            (["d/a.mif", "d/a.shp"], "would both write"),
            (["d/a.mif", "other/a.mif", "--", "-out", "x.12da"], "other/a.mif would both write"),
            (["d/a.mif", "other/a.mif", "--output-folder", "out"], "would both write"),
            (["-r", "d", "--name", "same"], "would both write"),
            (["d/a.mif", "d/a.12da"], "would take the place of the input"),
            (["xs", "--", "-xs", "-mif"], "XS_1.csv"),
        ]
        for arguments, words in cases:
            with self.subTest(arguments=arguments):
                done = self.batch(*arguments)
                self.assertEqual(done.status, 2 if words else 1, done.err)
                self.assertIn((words or "").replace("other/", ""), done.err)
        self.assertEqual([name for name in self.names() if name.endswith((".12da", ".csv"))], ["d/l.12da", "xs/x.12da", "xs/y.12da"])
        self.assertEqual(self.batch("case").status, 2 if WINDOWS else 0)

    def test_where_results_go_and_what_they_are_called(self):
        self.write(HEADER)
        cases = [
            (["d/a.mif"], ["d/a.12da"]),
            (["-r", "d", "--exclude", "*.shp", "--output-folder", "out/deep"],
             ["out/deep/a.12da", "out/deep/b.12da", "out/deep/sub/a.12da", "out/deep/sub/c.12da"]),
            (["d/a.mif", "d/s.shp", "--name", "{number}-{stem}.{ext}"],
             ["d/1-a.mif.12da", "d/2-s.shp.12da"]),
            (["d/a.mif", "d/b.mif", "--", "Header.mif"], ["d/a.12da", "d/b.12da"]),
            (["d/a.mif", "--", "-out", "there/x"], ["there/x.12da"]),
            (["d/l.12da", "--", "-shp", "d/Header.prj"],
             [f"d/l.12da_{f}.{e}" for f in "LP" for e in ("dbf", "prj", "shp", "shx")]),
            (["d/l.12da", "--name", "{stem}", "--", "-mif"], ["d/l.mid", "d/l.mif"]),
        ]
        before = set(self.names())
        for arguments, expected in cases:
            with self.subTest(arguments=arguments):
                done = self.batch(*arguments)
                self.assertEqual(done.status, 0, done.out + done.err)
                made = sorted(set(self.names()) - before)
                self.assertEqual(made, expected)
                files = sorted(f for run in done.runs for f in run["files"])
                self.assertEqual(len(files), len(expected))
                for name in made:
                    (self.folder / name).unlink()
        self.batch("d/a.mif", "--output-folder", "out")
        self.assertIn('model "from a gis"', self.text("out/a.12da"))

    def test_pairs(self):
        for stem in "pq":
            self.write(mif(POINTS, "1\n2\n", "Z Float", name=stem + "_points") |
                       mif(records="2\n", fields="Z Float", name=stem + "_lines"), "z/" + stem)
        self.write({"list.txt": "z/p/p_points.mif\tz/p/p_lines.mif\n"})
        template = "{stem}_points.mif={stem}_lines.mif"
        cases = [(["-r", "z", "--pair", template], 2), (["@list.txt"], 1),
                 (["-r", "z", "--include", "p*", "--pair", template], 1),
                 (["--pair", "z/q/q_points.mif=z/q/q_lines.mif",
                   "--pair", "z/p/../q/q_points.mif=./z/q/q_lines.mif"], 1),
                 (["-r", ".", "--pair", "p/" + template.replace("=", "=p/")], 1)]
        for arguments, count in cases:
            with self.subTest(arguments=arguments):
                done = self.batch(*arguments, "--", "-zln")
                self.assertEqual((done.status, len(done.runs)), (0, count), done.out + done.err)
                for run in done.runs:
                    self.assertRegex(run["output"], r"[pq]_lines\.12da$")
                    self.assertEqual(run["counts"], {})
        self.write(mif(POINTS, "1\n2\n", "Z Float"), "one")
        self.write(mif(records="2\n", fields="Z Float"), "two")
        done = self.batch("--pair", "one/l.mif=two/l.mif", "--", "-zln")
        self.assertEqual(done.verdicts, {"one/l.mif": "well"}, done.out)
        self.assertEqual(self.names("two"), ["l.12da", "l.mid", "l.mif", "l_dangles.mid", "l_dangles.mif",
                                             "l_unsnapped_points.mid", "l_unsnapped_points.mif"])
        done = self.batch("-r", "z", "--pair", "{stem}_points.mif={stem}_walls.mif", "--", "-zln")
        self.assertEqual((done.status, done.findings()), (1, {"missing"}))

    def test_names_that_are_hard_to_pass_on(self):
        names = ["-dash", " blank", "two  blanks", "quote'", "Fl\u00fcsse", "x" * 120]
        names += [] if WINDOWS else ['say "yes"', "line\nend", "\x16odd", "*", "$(x)"]
        for name in names:
            self.write(mif(name=name), "h")
        deep = "/".join(["deep" * 10] * (4 if WINDOWS else 40))
        self.write(mif(name="l"), deep)
        done = self.batch("-r", "h", "deep" * 10, "-q")
        self.assertEqual(done.status, 0, done.out + done.err)
        self.assertEqual(len(done.runs), len(names) + 1)
        wanted = sorted([f"h/{name}.12da" for name in names] + [deep + "/l.12da"])
        self.assertEqual([name for name in self.names() if name.endswith(".12da") and name[0] in "h" + deep[1:2] + "d" and not name.startswith("d/")], wanted)
        if not WINDOWS:
            odd = os.fsencode(self.folder) + b"/h/\xe9\x96.mif"
            os.mkdir(self.folder / "odd")
            for ending in (b".mif", b".mid"):
                os.rename(os.fsencode(self.folder) + b"/h/*" + ending,
                          os.fsencode(self.folder) + b"/odd/\xe9\x96" + ending)
            done = self.batch("odd")
            self.assertEqual(os.fsencode(done.runs[0]["input"]), b"odd/\xe9\x96.mif")
            self.assertEqual(done.status, 0, done.out)
            self.assertTrue(odd)

    def test_dry_run_shows_what_would_be_typed(self):
        self.write(mif(name="it's"), "q")
        done = self.batch("q", "d/a.mif", "--dry-run", "--", "-model", "a b")
        self.assertIn("l.mif" if WINDOWS else "'it'\\''s.mif' -model 'a b'", done.out + "l.mif")
        self.assertEqual(len(done.out.splitlines()), 2)
        self.assertFalse(any(name.endswith(".12da") and "l." not in name for name in self.names()))

    def test_help_fits_a_screen(self):
        for option, most in (("--help", 40), ("--help-all", 90), ("--version", 1)):
            done = subprocess.run([*BATCH, option], capture_output=True, check=True)
            lines = done.stdout.decode().splitlines()
            self.assertLessEqual(len(lines), most)
            self.assertLessEqual(max(map(len, lines)), 120)


if __name__ == "__main__":
    main()
