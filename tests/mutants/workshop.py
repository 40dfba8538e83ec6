"""A copy of the tree, in which one worker builds one fault after the other and runs the tests on it."""
import dataclasses
import enum
import filecmp
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import time

from mutations import Mutation

HERE = pathlib.Path(__file__).resolve().parent
RINGS = ("test_logic", "test_system", "test_windows")  # the quick one first
LONGEST_BUILD = 900  # seconds: a header that everything reads, on a busy machine


class Outcome(enum.Enum):
    NOTICED = "noticed"
    SURVIVED = "survived"
    NO_DIFFERENCE = "no difference"  # the programs that were asked are the same with it
    NOT_COMPILED = "not compiled"


@dataclasses.dataclass
class Ring:
    name: str
    seconds: float = 0.0
    left_out: list[str] = dataclasses.field(default_factory=list)  # tests that fail without any fault


class Workshop:
    def __init__(self, tree: pathlib.Path, folder: pathlib.Path):
        self.copy = folder / "tree"
        self.build = folder / "build"
        self.jobs = 1
        self._has_changed = True
        self._digests: dict[str, bytes] = {}  # of programs without a fault
        # So that the workshops find in ccache what one of them has compiled.
        self.environment = dict(os.environ, CCACHE_BASEDIR=str(folder))
        copy_sources(tree, self.copy)

    def configure(self, with_windows: bool) -> None:
        quiet = "-O1 -w -U_GLIBCXX_ASSERTIONS"  # a fault counts as noticed where the delivered program would show it
        options = {
            "CMAKE_BUILD_TYPE": "Debug", "CMAKE_CXX_FLAGS_DEBUG": quiet, "TICKERVANTAGE_TESTS": "ON",
            "TICKERVANTAGE_UI": "ON" if with_windows else "OFF",
            # Otherwise the build would run the changed program, outside of its enclosure.
            "CMAKE_GTEST_DISCOVER_TESTS_DISCOVERY_MODE": "PRE_TEST",
        }
        defined = [f"-D{name}={value}" for name, value in options.items()]
        self._run(["cmake", "-G", "Ninja", "-S", str(self.copy), "-B", str(self.build), *defined], check=True)

    def build_ring(self, ring: Ring) -> None:
        if not self._compile(ring.name, LONGEST_BUILD * 4):
            raise SystemExit(f"{ring.name} does not build without a fault; see {self.build}.")
        if ring.name != "test_system":  # which starts other programs
            self._digests[ring.name] = self._digest(ring)

    def measure(self, ring: Ring) -> None:
        """Takes the time of the tests without a fault, and the names of those that fail here anyway."""
        begun = time.monotonic()
        answer = self._test(ring, [], 1800)
        ring.seconds = time.monotonic() - begun
        ring.left_out = sorted(set(re.findall(r"^\[  FAILED  \] ([\w./]+)", answer.stdout, re.MULTILINE)))
        if answer.returncode != 0 and not ring.left_out:
            raise SystemExit(f"{ring.name} cannot run enclosed: {(answer.stderr or answer.stdout).strip()[-300:]}")

    def judge(self, fault: Mutation, rings: list[Ring]) -> Outcome:
        file = self.copy / fault.path
        original = file.read_text()
        lines = original.split("\n")
        if lines[fault.line - 1] != fault.before:
            raise SystemExit(f"{file} is not what the faults were drawn from.")
        lines[fault.line - 1] = fault.after
        try:
            file.write_text("\n".join(lines))
            return self._judge_present(rings)
        finally:
            file.write_text(original)

    def _judge_present(self, rings: list[Ring]) -> Outcome:
        differs = False
        for ring in rings:
            if not self._compile(ring.name, LONGEST_BUILD):
                return Outcome.NOT_COMPILED
            if not self._has_changed or self._digests.get(ring.name) == self._digest(ring):
                continue
            differs = True
            if self._is_noticed(ring):
                return Outcome.NOTICED
        return Outcome.SURVIVED if differs else Outcome.NO_DIFFERENCE

    def _program(self, ring: Ring) -> pathlib.Path:
        return next(self.build.glob(f"tests/*/{ring.name}"))

    def _digest(self, ring: Ring) -> bytes:
        return hashlib.sha256(self._program(ring).read_bytes()).digest()

    def _compile(self, target: str, limit: float) -> bool:
        command = ["cmake", "--build", str(self.build), "--parallel", str(self.jobs), "--target", target]
        try:
            answer = self._run(command, timeout=limit)
        except subprocess.TimeoutExpired:
            return False
        self._has_changed = "no work to do" not in answer.stdout
        return answer.returncode == 0

    def _is_noticed(self, ring: Ring) -> bool:
        """A failure counts when it comes again, since a test may fail once on a busy machine."""
        limit = 30 + 5 * ring.seconds
        for _ in range(2):
            try:
                if self._test(ring, ["--gtest_fail_fast"], limit).returncode == 0:
                    return False
            except subprocess.TimeoutExpired:
                return True
        return True

    def _test(self, ring: Ring, options: list[str], limit: float) -> subprocess.CompletedProcess:
        without = ["--gtest_filter=-" + ":".join(ring.left_out)] if ring.left_out else []
        return self._run([str(HERE / "enclosed"), str(self._program(ring)), "--gtest_brief=1", *without, *options], timeout=limit)

    def _run(self, command: list[str], check: bool = False, timeout: float | None = None) -> subprocess.CompletedProcess:
        answer = subprocess.run(command, env=self.environment, stdin=subprocess.DEVNULL, capture_output=True, text=True,
                                errors="replace", timeout=timeout)
        if check and answer.returncode != 0:
            raise SystemExit(f"{command[0]} failed: {answer.stderr.strip()[-2000:]}")
        return answer


def copy_sources(tree: pathlib.Path, copy: pathlib.Path) -> None:
    """Makes the copy hold what git knows of or would add, and leaves files alone that are the same already."""
    listed = subprocess.run(["git", "-C", str(tree), "ls-files", "-co", "--exclude-standard", "-z"], check=True,
                            capture_output=True, text=True).stdout
    wanted = {name for name in listed.split("\0") if name and (tree / name).is_file()}
    for name in wanted:
        target = copy / name
        target.parent.mkdir(parents=True, exist_ok=True)
        if not target.exists() or not filecmp.cmp(tree / name, target, shallow=False):
            shutil.copy(tree / name, target)
    for old in copy.rglob("*"):
        if old.is_file() and str(old.relative_to(copy)) not in wanted:
            old.unlink()
