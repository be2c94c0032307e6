"""Runs the converter through vantelgis-batch, which looks, runs and judges; here its verdict is
only passed on."""

import json

from qgis.core import QgsProcessingException

from .programs import Run

# Names of counts.
ASTERISKS = "asterisks"
FLAT = "lines without a snapped point"


class _Events:
    """Takes the lines of the batch program: events in JSON, and words for people."""

    def __init__(self, feedback, total):
        self._feedback, self._total = feedback, total
        self.record, self.words = None, []

    def take(self, _is_error, line):
        try:
            event = json.loads(line)
        except ValueError:
            event = None
        if not isinstance(event, dict):
            self.words.append(line)
        elif "record" in event:
            self.record = event["record"]
        elif "text" in event:
            self._feedback.pushInfo(event["text"])
        elif event.get("count") and self._total:
            self._feedback.setProgress(min(99, 100 * event["count"] / self._total))


def convert(arguments, folder, feedback, total=0, expected=()):
    """Converts one input in a scratch folder and returns the batch program's record of it. Raises
    with reason and cure when the run failed; puts what is suspicious into the log. `total` is the
    number of lines or points to expect, if it is known; counts named in `expected` are no cause
    for a warning."""
    events = _Events(feedback, total)
    status = Run("vantelgis-batch", ["-j", "1", "--progress", "json", *arguments],
                 folder).follow(feedback, events.take)
    if events.record is None:
        said = "\n".join(events.words[-20:])
        raise QgsProcessingException(f"vantelgis-batch ended with status {status}: {said}")
    _judge(events.record, expected, feedback)
    return events.record


def _judge(record, expected, feedback):
    findings, counts = record.get("findings", []), record.get("counts", {})
    reason = _sentence(record.get("reason"), record.get("cure"))
    said = {level: [_sentence(finding["words"], finding["cure"]) for finding in findings
                    if finding["level"] == level] for level in ("error", "warning", "note")}
    if record["verdict"] not in ("well", "suspicious") or any(ASTERISKS in name for name in counts):
        raise QgsProcessingException("\n".join([reason, *said["error"]]))
    for words in said["note"]:
        if words != reason:
            feedback.pushInfo(words)
    for words in said["warning"]:
        feedback.pushWarning(words)
    if record["verdict"] == "suspicious" and (not counts or set(counts) - set(expected)):
        feedback.pushWarning(reason)
        for name, count in counts.items():
            feedback.pushWarning(f"{name}: {count}")
    feedback.pushInfo(f"Converted: {record['converted']}, with {record['vertices']} vertices.")


def _sentence(*parts):
    return " ".join(part for part in parts if part)
