#!/usr/bin/env python3
"""The guide's one page has all pages of docs/ and no dead link. A browser without a screen, where there
is one (Debian: chromium), shows every picture, nothing wider than the page, be it a desktop's or a
telephone's, no word that was taken for a tag, and fetches nothing.
Argument: guide.html."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]
BROWSERS = "chromium", "chromium-browser", "google-chrome"
LOOK = """<script>addEventListener("load", () => {
  const all = what => [...document.querySelectorAll(what)];
  const faults = [
    ...all("img").filter(image => !image.naturalWidth).map(image => "no picture " + image.alt),
    ...all("a[href^='#']").filter(link => !document.getElementById(link.hash.slice(1)))
      .map(link => "no " + link.hash),
    ...all("main *").filter(part => part instanceof HTMLUnknownElement).map(part => "no tag " + part.tagName),
    ...all("p, li, h1, h2, h3").filter(part => part.scrollWidth > innerWidth)
      .concat(all("table").filter(table => table.offsetWidth > innerWidth)).map(part => "wide " + part.innerText),
    ...performance.getEntriesByType("resource").filter(entry => !entry.name.startsWith("data:"))
      .map(entry => "fetched " + entry.name)];
  document.title = `${all("img").length} pictures, ${all("a").length} links: `
    + (faults.join("; ") || "all well");
});</script>"""


def faults_of_pages():
    """What the script that makes the guide has to say; Debian's Python has the module that it needs."""
    pythons = [python for python in (sys.executable, "/usr/bin/python3")
               if subprocess.run([python, "-c", "import markdown"], stderr=subprocess.DEVNULL,
                                 check=False).returncode == 0]
    return subprocess.run([pythons[0], ROOT / "cmake/guide_html.py", ROOT / "docs", "1", "--strict"],
                          stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True,
                          check=False).stderr


def title_at(browser, width, page, folder):
    shown = subprocess.run(
        [browser, "--headless", "--no-sandbox", "--disable-gpu", f"--window-size={width},768",
         f"--user-data-dir={folder}/profile", "--dump-dom", page.as_uri()],
        capture_output=True, text=True, timeout=120, check=True).stdout
    return re.search("<title>(.*?)</title>", shown, re.DOTALL)[1]


def main():
    faults = faults_of_pages()
    browser = next(filter(None, map(shutil.which, BROWSERS)), None)
    if faults or browser is None:
        print(faults or "The pages hang together; there is no Chromium to look at them")
        return 1 if faults else 0
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder) / "guide.html"
        page.write_text(pathlib.Path(sys.argv[1]).read_text("utf-8") + LOOK, "utf-8")
        titles = [title_at(browser, width, page, folder) for width in (1024, 420)]
    print(*titles, sep="\n")
    return 0 if all(title.endswith(": all well") for title in titles) else 1


if __name__ == "__main__":
    sys.exit(main())
