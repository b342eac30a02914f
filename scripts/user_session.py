#!/usr/bin/env python3
"""Uses the terminal as a person does, by real mouse and keys on a display of its own, and watches it.

    scripts/user_session.py PROGRAM [--minutes 20] [--seed 1] [ARGS...]

PROGRAM is a depth-terminal, best one built with the address sanitizer; ARGS go to it. The session opens every
layout and pane, plays at speed, seeks, steps, changes instruments, themes and windows, opens dialogs, writes
tables and pictures, and clicks, drags and turns the wheel all over the panels. It ends with exit code 0 if the
program lived, wrote nothing to its error output that a sanitizer would, ended by itself with exit code 0, and
needed no more memory in the last third than in the second, but for a tenth.

Needs Xvfb, openbox and xdotool.
"""

import argparse
import os
import random
import shutil
import signal
import subprocess
import sys
import tempfile
import time

WIDTH, HEIGHT = 1920, 1080
SAMPLE_SECONDS = 5
GROWTH_ALLOWED = 1.10
FINDING = ("ERROR: ", "runtime error:", "SUMMARY: ", "ASSERT", "terminate called")


class Session:
    def __init__(self, options):
        self.random = random.Random(options.seed)
        self.options = options
        self.folder = tempfile.mkdtemp(prefix="depth-session-")
        self.display = None
        self.processes = []
        self.memory = []  # (seconds, KiB)
        self.done = {}

    # The display and the program

    def start(self):
        for number in range(90, 130):
            if not os.path.exists(f"/tmp/.X{number}-lock"):
                self.display = f":{number}"
                break
        screen = f"{WIDTH}x{HEIGHT}x24"
        self.spawn(["Xvfb", self.display, "-screen", "0", screen, "-nolisten", "tcp"])
        time.sleep(2)
        self.environment = dict(os.environ, DISPLAY=self.display, QT_QPA_PLATFORM="xcb")
        self.environment.setdefault("ASAN_OPTIONS", "quarantine_size_mb=32:detect_leaks=1:exitcode=99")
        known = os.path.join(os.path.dirname(__file__), "..", "cmake", "lsan.supp")  # leaks of libraries
        self.environment.setdefault("LSAN_OPTIONS", f"suppressions={os.path.abspath(known)}:print_suppressions=0")
        self.spawn(["openbox"])
        time.sleep(1)
        self.errors = open(os.path.join(self.folder, "errors"), "w+")
        command = [self.options.program, "--settings", os.path.join(self.folder, "settings.json"),
                   "--size", f"{WIDTH}x{HEIGHT - 60}"] + self.options.arguments
        self.program = subprocess.Popen(command, env=self.environment, stderr=self.errors)
        self.begin = time.monotonic()
        self.wait(20)

    def spawn(self, command):
        environment = dict(os.environ, DISPLAY=self.display)
        self.processes.append(subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL,
                                               stderr=subprocess.DEVNULL))

    def seconds(self):
        return time.monotonic() - self.begin

    def wait(self, seconds):
        end = time.monotonic() + seconds
        while time.monotonic() < end:
            if self.program.poll() is not None:
                raise RuntimeError(f"the program ended with {self.program.returncode}")
            if not self.memory or self.seconds() - self.memory[-1][0] >= SAMPLE_SECONDS:
                self.memory.append((self.seconds(), self.resident()))
            time.sleep(min(0.2, max(0.0, end - time.monotonic())))

    def resident(self):
        with open(f"/proc/{self.program.pid}/status") as status:
            for line in status:
                if line.startswith("VmRSS:"):
                    return int(line.split()[1])
        return 0

    # What a person does

    def xdotool(self, *arguments):
        subprocess.run(["xdotool", *map(str, arguments)], env=self.environment, timeout=30,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def key(self, keys, pause=0.4):
        self.xdotool("key", "--clearmodifiers", keys)
        self.wait(pause)

    def spot(self):
        """A place on the panes: below menus and tool bar, above the replay bar."""
        return self.random.randint(10, WIDTH - 10), self.random.randint(95, HEIGHT - 120)

    def click(self):
        self.xdotool("mousemove", *self.spot(), "click", self.random.choice([1, 1, 1, 3]))
        self.wait(0.3)
        self.key("Escape", 0.1)  # a menu that came

    def double_click(self):
        self.xdotool("mousemove", *self.spot(), "click", "--repeat", 2, "--delay", 60, 1)
        self.wait(0.6)
        self.key("Escape", 0.1)

    def drag(self):
        start, end = self.spot(), self.spot()
        self.xdotool("mousemove", *start, "mousedown", 1)
        for part in range(1, 6):
            self.xdotool("mousemove", *(int(a + (b - a) * part / 5) for a, b in zip(start, end)))
        self.xdotool("mouseup", 1)
        self.wait(0.5)

    def wheel(self):
        self.xdotool("mousemove", *self.spot(), "click", "--repeat", 6, "--delay", 20,
                     self.random.choice([4, 5]))
        self.wait(0.3)

    def seek(self):
        self.xdotool("mousemove", self.random.randint(600, WIDTH - 400), HEIGHT - 70, "click", 1)
        self.wait(1.5)

    def instrument(self):
        self.xdotool("mousemove", 120, self.random.randint(180, 420), "click", 1)
        self.wait(2.5)

    def layout(self):
        self.key(f"ctrl+shift+{self.random.randint(1, 4)}", 1.5)

    def step(self):
        self.key(self.random.choice(["period", "comma", "bracketright", "bracketleft", "ctrl+period",
                                     "shift+Right", "shift+Left", "ctrl+Right", "ctrl+Left"]), 1.2)
        self.key("space")

    def phase(self):
        self.key(self.random.choice(["ctrl+Next", "ctrl+Prior", "ctrl+shift+o"]), 1.5)

    def dialog(self):
        self.key(self.random.choice(["F1", "ctrl+semicolon", "ctrl+l", "ctrl+k", "ctrl+shift+s"]), 1.2)
        self.key("Tab", 0.2)
        self.key("Escape", 0.3)
        self.key("Escape", 0.3)

    def export(self):
        ending, keys = self.random.choice([("csv", "ctrl+e"), ("csv", "ctrl+shift+e"), ("png", "ctrl+p")])
        file = os.path.join(self.folder, f"out{len(os.listdir(self.folder))}.{ending}")
        self.xdotool("mousemove", *self.spot(), "click", 1)
        self.key(keys, 1.5)
        self.key("Return", 0.6)  # of several lists the first
        self.xdotool("type", "--delay", 2, file)
        self.key("Return", 1.5)
        self.key("Escape", 0.2)
        self.key("Escape", 0.2)

    def look(self):
        self.key(self.random.choice(["ctrl+t", "ctrl+t", "alt+1", "alt+2", "alt+3", "ctrl+1", "ctrl+2", "ctrl+3",
                                     "ctrl+4", "ctrl+5", "ctrl+0", "ctrl+f", "ctrl+h", "ctrl+d", "ctrl+r"]), 0.8)

    def speed(self):
        self.key(self.random.choice(["ctrl+Up", "ctrl+Up", "ctrl+Down", "ctrl+shift+Up"]), 0.5)

    def group(self):
        self.key(f"alt+shift+{self.random.randint(1, 4)}", 1.5)

    def window(self):
        self.key("ctrl+shift+n", 1.5)
        self.key("alt+F4", 1.0) if self.windows() > 1 else None

    def windows(self):
        found = subprocess.run(["xdotool", "search", "--onlyvisible", "--pid", str(self.program.pid)],
                               env=self.environment, capture_output=True, text=True)
        return len(found.stdout.split())

    def run(self):
        kinds = [(self.click, 10), (self.double_click, 3), (self.drag, 4), (self.wheel, 6), (self.seek, 4),
                 (self.instrument, 4), (self.layout, 4), (self.step, 5), (self.phase, 2), (self.dialog, 2),
                 (self.export, 2), (self.look, 6), (self.speed, 4), (self.group, 2), (self.window, 1)]
        acts = [act for act, weight in kinds for _ in range(weight)]
        # Each of them once, whatever the dice say; then as they fall.
        order = [act for act, _ in kinds]
        while self.seconds() < self.options.minutes * 60:
            act = order.pop() if order else self.random.choice(acts)
            act()
            self.done[act.__name__] = self.done.get(act.__name__, 0) + 1
        self.key("Escape")
        self.key("ctrl+shift+1", 2)

    # How it ended

    def finish(self):
        self.key("ctrl+q", 0)
        try:
            self.program.wait(120)
        except subprocess.TimeoutExpired:
            raise RuntimeError("the program did not end when it was told to") from None
        if self.program.returncode != 0:
            raise RuntimeError(f"the program ended with {self.program.returncode}")

    def findings(self):
        self.errors.flush()
        self.errors.seek(0)
        return [line for line in self.errors.read().splitlines() if any(word in line for word in FINDING)]

    def growth(self):
        """Mean memory of the last third against that of the second, and both in MiB."""
        length = self.memory[-1][0]
        parts = [[kib for at, kib in self.memory if length * third / 3 <= at <= length * (third + 1) / 3]
                 for third in (1, 2)]
        middle, last = (sum(part) / max(1, len(part)) / 1024 for part in parts)
        return last / max(1.0, middle), middle, last

    def stop(self):
        for process in [getattr(self, "program", None)] + self.processes[::-1]:
            if process and process.poll() is None:
                process.send_signal(signal.SIGTERM)
                try:
                    process.wait(10)
                except subprocess.TimeoutExpired:
                    process.kill()


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("program")
    parser.add_argument("--minutes", type=float, default=20)
    parser.add_argument("--seed", type=int, default=int(time.time()))
    options, options.arguments = parser.parse_known_args()
    for tool in ("Xvfb", "openbox", "xdotool"):
        if not shutil.which(tool):
            print(f"user_session: {tool} is missing; apt-get install xvfb openbox xdotool", file=sys.stderr)
            return 77
    session = Session(options)
    print(f"seed {options.seed}, {options.minutes:g} minutes", flush=True)
    failure = None
    try:
        session.start()
        session.run()
        session.finish()
    except RuntimeError as error:
        failure = str(error)
    finally:
        session.stop()
    findings = session.findings()
    growth, middle, last = session.growth()
    print("done: " + ", ".join(f"{name} {count}" for name, count in sorted(session.done.items())))
    print(f"memory: {middle:.0f} MiB in the second third, {last:.0f} MiB in the last, {growth:.2f} times; "
          f"most {max(kib for _, kib in session.memory) / 1024:.0f} MiB")
    for line in findings[:20]:
        print(line)
    if failure:
        print(f"user_session: {failure}", file=sys.stderr)
    if findings:
        print(f"user_session: {len(findings)} findings, all output in {session.folder}/errors", file=sys.stderr)
    if growth > GROWTH_ALLOWED:
        print("user_session: the memory grows", file=sys.stderr)
    good = not failure and not findings and growth <= GROWTH_ALLOWED
    if good:
        shutil.rmtree(session.folder)
    return 0 if good else 1


if __name__ == "__main__":
    sys.exit(main())
