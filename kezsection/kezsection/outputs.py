"""Files that are complete or not there: each is written beside its place and moved there."""

import contextlib
import os
import stat
import sys
import tempfile
from pathlib import Path


class Refused(Exception):
    """What stands in the way of a run, before any work."""


def real(path):
    return Path(os.path.realpath(path))


def same(one, other):
    if real(one) == real(other):
        return True
    try:
        return os.path.samefile(one, other)
    except OSError:
        return False


def is_report(path):
    """Whether standard output goes to that file."""
    try:
        report = os.fstat(sys.stdout.fileno())
        return stat.S_ISREG(report.st_mode) and os.path.samestat(report, os.stat(path))
    except (OSError, ValueError):
        return False


def refuse_overlaps(source, files, folder=None):
    """No output, the report among them, may be the input or another output."""
    named = [(option, path) for option, path in files if path]
    for option, path in [*named, ("--svg", folder)]:
        if path == "-":
            raise Refused(f"{option} -: standard output is for the report; name another place")
    for option, path in [("the input", source), *named]:
        if is_report(path):
            what = option.replace("--", "the file of --")
            raise Refused(f"standard output goes to {path}, which is {what} too; name another file")
    for i, (option, path) in enumerate(named):
        if same(path, source):
            raise Refused(f"{option} {path} is the input; name another file")
        for other, earlier in named[:i]:
            if same(path, earlier):
                raise Refused(f"{option} {path} is the file of {other} too; name another one")
        if os.path.isdir(path):
            raise Refused(f"{option} {path} is a folder; name a file")
        if os.path.exists(path) and not os.path.isfile(path):
            raise Refused(f"{option} {path} is no ordinary file")
    if folder:
        pictures = real(folder)
        for option, path in [("the input", source), *named]:
            p = real(path)
            if p.parent == pictures and p.match("section-*.svg"):
                raise Refused(f"--svg {folder} would write pictures over {option} {path}")
            if p == pictures:
                raise Refused(f"--svg {folder} is the file of {option}; name a folder")


def make_folder(option, path):
    try:
        Path(path).mkdir(parents=True, exist_ok=True)
    except OSError as fault:
        raise Refused(f"{option} {path}: {fault.strerror or fault}") from None
    if not os.access(path, os.W_OK | os.X_OK):
        raise Refused(f"{option} {path}: the folder cannot be written")


class Output:
    """A text file that takes its place when it is complete."""
    def __init__(self, option, path, encoding="utf-8"):
        self.option, self.path, target = option, path, real(path)
        make_folder(option, target.parent)
        self.target = target
        try:
            handle, self.beside = tempfile.mkstemp(prefix=f".{target.name[:100]}.",
                                                   dir=target.parent)
        except OSError as fault:
            raise Refused(f"{option} {path}: {fault.strerror or fault}") from None
        self.file = os.fdopen(handle, "w", encoding=encoding, newline="")

    def write(self, text):
        try:
            self.file.write(text)
        except OSError as fault:
            raise Refused(f"{self.option} {self.path}: {fault.strerror or fault}") from None

    def finish(self):
        """All of it on the disk, still beside its place."""
        try:
            self.file.flush()
            os.fsync(self.file.fileno())
            self.file.close()
        except OSError as fault:
            raise Refused(f"{self.option} {self.path}: {fault.strerror or fault}") from None

    def place(self):
        """With the rights of the earlier file, or the usual ones."""
        try:
            mask = os.umask(0)
            os.umask(mask)
            old = self.target.stat().st_mode & 0o777 if self.target.exists() else 0o666 & ~mask
            os.chmod(self.beside, old)
            os.replace(self.beside, self.target)
        except OSError as fault:
            raise Refused(f"{self.option} {self.path}: {fault.strerror or fault}") from None
        self.beside = None

    def discard(self):
        for step in (self.file.close, lambda: os.unlink(self.beside)) if self.beside else ():
            with contextlib.suppress(OSError):
                step()
        self.beside = None


class Outputs:
    """All files of a run: each is placed when all are finished."""
    def __init__(self):
        self.files = []

    def add(self, option, path, encoding="utf-8"):
        self.files.append(Output(option, path, encoding))
        return self.files[-1]

    def whole(self, option, path, text):
        output = self.add(option, path)
        output.write(text)
        output.finish()  # many pictures may be waiting

    def complete(self):
        for output in self.files:
            if not output.file.closed:
                output.finish()
        for output in self.files:
            output.place()

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for output in self.files:
            output.discard()
