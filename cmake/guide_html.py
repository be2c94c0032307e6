#!/usr/bin/env python3
"""Writes the guide as one page of HTML to standard output, with its pictures inside.

Usage: guide_html.py FOLDER VERSION [--strict]

The pages are those that FOLDER/README.md links to, in its order. A page that it leaves out, a link
that leads nowhere and a picture that isn't there are told on standard error, and with --strict the
status is 1.
Needs the Python module markdown.
"""

import base64
import html
import pathlib
import re
import sys

import markdown
from markdown.extensions.toc import TocExtension

SHORT = 18  # characters of code that aren't broken where a line ends
MEDIA = {".png": "image/png", ".svg": "image/svg+xml"}
STYLE = """
:root { color-scheme: light dark; --line: #c8ced6; --soft: #f2f5f8; --link: #1f5fa8; }
@media (prefers-color-scheme: dark) { :root { --line: #4a5460; --soft: #20262d; --link: #8fb8e4; } }
body { font: 16px/1.55 "Segoe UI", "Noto Sans", "Liberation Sans", sans-serif; margin: 0; }
main { max-width: 60rem; margin: 0 auto; padding: 1rem 1.5rem 6rem; }
a { color: var(--link); }
h1 { margin-top: 4rem; border-bottom: 2px solid var(--link); }
header h1 { margin-top: 1rem; }
section { break-before: page; }
code { font: 0.9em/1.45 Consolas, "DejaVu Sans Mono", monospace; white-space: pre-wrap; overflow-wrap: anywhere; }
.short { white-space: pre; }
pre code { white-space: pre; }
pre { background: var(--soft); padding: 0.8rem 1rem; overflow-x: auto; border-radius: 4px; }
table { border-collapse: collapse; margin: 1rem 0; }
th, td { border: 1px solid var(--line); padding: 0.35rem 0.7rem; text-align: left; vertical-align: top; }
th { background: var(--soft); }
img { max-width: 100%; background: white; }
@media (max-width: 40rem) {
  main { padding: 0.5rem 0.7rem 3rem; }
  table { font-size: 0.85rem; display: block; overflow-x: auto; }
  th, td { padding: 0.25rem 0.35rem; }
}
""".strip()


class Guide:
    def __init__(self, folder, version):
        self.folder = folder
        self.version = version
        self.faults = []

    def pages(self):
        index = (self.folder / "README.md").read_text("utf-8")
        names = list(dict.fromkeys(re.findall(r"\]\(([\w-]+)\.md\)", index)))
        left_out = {path.stem for path in self.folder.glob("*.md")} - {"README", *names}
        self.faults += [f"README.md has no link to {name}.md" for name in sorted(left_out)]
        return [name for name in names if (self.folder / f"{name}.md").is_file()]

    def picture(self, source):
        path = self.folder / html.unescape(source)
        if path.suffix not in MEDIA or not path.is_file():
            self.faults.append(f"no picture {source}")
            return source
        data = base64.b64encode(path.read_bytes()).decode()
        return f"data:{MEDIA[path.suffix]};base64,{data}"

    def target(self, page, address):
        """Links to a page, or to a heading of one, lead to it within this page."""
        if re.match(r"[a-z]+:", address):
            return address
        name, _, heading = address.partition("#")
        name = pathlib.PurePath(name).stem if name else page
        return "#" + (f"{name}--{heading}" if heading else name)

    def section(self, page):
        """A page of the guide; the names of its headings begin with its own."""
        toc = TocExtension(slugify=lambda text, separator: f"{page}--{slug(text, separator)}")
        body = markdown.markdown((self.folder / f"{page}.md").read_text("utf-8"),
                                 extensions=["tables", "fenced_code", "sane_lists", toc])
        body = re.sub(r'(<img [^>]*?src=")([^"]*)',
                      lambda found: found[1] + self.picture(found[2]), body)
        body = re.sub("(?<!<pre>)<code>([^<]*)</code>", in_text, body)
        body = re.sub(r'(<a href=")([^"]*)',
                      lambda found: found[1] + self.target(page, found[2]), body)
        return f'<section id="{page}">\n{body}\n</section>'

    def with_titles(self, text, pages):
        """Links that show the name of a page's file show its title."""
        for page in pages:
            title = re.search(rf'<section id="{page}">\s*<h1[^>]*>(.*?)</h1>', text)
            if title:
                text = text.replace(f">{page}.md</a>", f">{title[1]}</a>")
        return text

    def check_links(self, text):
        names = re.findall(r' id="([^"]*)"', text)
        self.faults += [f"two headings {name}" for name in set(names) if names.count(name) > 1]
        self.faults += [f"a link to {name}, which isn't there"
                        for name in set(re.findall(r'<a href="#([^"]*)"', text)) - set(names)]

    def text(self):
        pages = self.pages()
        body = self.with_titles("\n".join(map(self.section, ["README", *pages])), pages)
        body = body.replace('<section id="README">', "<header>", 1).replace("</section>", "</header>", 1)
        self.check_links(body)
        return (f'<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
                '<meta name="viewport" content="width=device-width">\n'
                f"<title>vantelgis {self.version}: guide</title>\n<style>\n{STYLE}\n</style>\n"
                f"</head>\n<body>\n<main>\n{body}\n</main>\n</body>\n</html>\n")


def in_text(code):
    """Code marks within a paragraph: its blanks stay, a line end of the page is one."""
    text = code[1].replace("\n", " ")
    kind = ' class="short"' if len(html.unescape(text)) <= SHORT else ""
    return f"<code{kind}>{text}</code>"


def slug(text, separator):
    """The name of a heading as the usual viewers of Markdown make it."""
    return re.sub(r"\s", separator, re.sub(r"[^\w\s-]", "", text).strip().lower())


def main():
    guide = Guide(pathlib.Path(sys.argv[1]), sys.argv[2])
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(guide.text())
    print(*guide.faults, sep="\n", end="", file=sys.stderr)
    return 1 if guide.faults and sys.argv[3:] == ["--strict"] else 0


if __name__ == "__main__":
    sys.exit(main())
