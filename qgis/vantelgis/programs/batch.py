"""Runs the converter through vantelgis-batch, which looks, runs and judges; here its verdict is
only passed on."""

import json
import os

from qgis.core import QgsProcessingException

from .programs import Run

REPORT = "report.json"
ASTERISKS = "asterisks"  # of the count of numbers that had no room in their columns


def convert(arguments, folder, feedback):
    """Converts one input in a scratch folder and returns the batch program's record of it. Raises
    with reason and cure when the run failed; puts what is suspicious into the log."""
    words = []
    status = Run("vantelgis-batch", ["-j", "1", "--progress", "json", "--report", REPORT, *arguments],
                 folder).follow(feedback, lambda _, line: _take_line(line, words, feedback))
    try:
        with open(os.path.join(folder, REPORT), encoding="utf-8", errors="surrogateescape") as file:
            record = json.load(file)["inputs"][0]
    except (OSError, ValueError, LookupError) as error:
        said = "\n".join(words[-20:])
        raise QgsProcessingException(
            f"vantelgis-batch ended with status {status} and no report: {said}") from error
    _judge(record, feedback)
    return record


def _take_line(line, words, feedback):
    """A line is an event in JSON, or words for people."""
    try:
        event = json.loads(line)
    except ValueError:
        event = None
    if not isinstance(event, dict):
        words.append(line)
    elif event.get("total"):
        feedback.setProgress(100 * event.get("done", 0) / event["total"])


def _judge(record, feedback):
    findings = record.get("findings", [])
    counts = record.get("counts", {})
    verdict, reason = record["verdict"], _sentence(record)
    if verdict not in ("well", "suspicious") or counts.get(ASTERISKS):
        raise QgsProcessingException("\n".join(
            [reason] + [_sentence(finding) for finding in findings if finding["level"] == "error"]))
    for finding in findings:
        tell = feedback.pushInfo if finding["level"] == "note" else feedback.pushWarning
        tell(_sentence(finding))
    if verdict == "suspicious":
        feedback.pushWarning(reason)
        for name, count in counts.items():
            feedback.pushWarning(f"{count} {name}")
    feedback.pushInfo(f"{record.get('converted', 0)} converted, of {record.get('objects', 0)} "
                      f"objects with {record.get('vertices', 0)} vertices.")


def _sentence(said):
    """What is there, and what to do, of a record or of a finding."""
    words = said.get("reason") or said.get("words") or ""
    return " ".join(part for part in (words, said.get("cure")) if part)
