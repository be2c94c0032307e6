#!/usr/bin/env python3
"""Opens the guide in a browser without a screen: every picture shows, every link leads somewhere, no
table is wider than the page, nothing is fetched. Argument: guide.html. Skipped where there is no
Chromium (Debian: chromium)."""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile

SKIPPED = 77
BROWSERS = "chromium", "chromium-browser", "google-chrome"
LOOK = """<script>addEventListener("load", () => {
  const all = what => [...document.querySelectorAll(what)];
  const faults = [
    ...all("img").filter(image => !image.naturalWidth).map(image => "no picture " + image.alt),
    ...all("a[href^='#']").filter(link => !document.getElementById(link.hash.slice(1)))
      .map(link => "no " + link.hash),
    ...all("table").filter(table => table.offsetWidth > innerWidth).map(table => "wide " + table.innerText),
    ...performance.getEntriesByType("resource").filter(entry => !entry.name.startsWith("data:"))
      .map(entry => "fetched " + entry.name)];
  document.title = `${all("img").length} pictures, ${all("a").length} links: `
    + (faults.join("; ") || "all well");
});</script>"""


def main():
    browser = next(filter(None, map(shutil.which, BROWSERS)), None)
    if browser is None:
        print("no Chromium")
        return SKIPPED
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder) / "guide.html"
        page.write_text(pathlib.Path(sys.argv[1]).read_text("utf-8") + LOOK, "utf-8")
        shown = subprocess.run(
            [browser, "--headless", "--no-sandbox", "--disable-gpu", "--window-size=1024,768",
             f"--user-data-dir={folder}/profile", "--dump-dom", page.as_uri()],
            capture_output=True, text=True, timeout=120, check=True).stdout
    title = re.search("<title>(.*?)</title>", shown, re.DOTALL)[1]
    print(title)
    return 0 if title.endswith(": all well") else 1


if __name__ == "__main__":
    sys.exit(main())
