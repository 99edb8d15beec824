#!/usr/bin/env python3
"""Times log reading side by side in one run; prints a Markdown table (best of RUNS, default 3).

usage: nmea_read_bench.py BUILD

Logs are generated once into BUILD/bench-data/. Every command writes its whole output to
/dev/null, so each pays for producing its track but not for a disk.
"""
import os
import resource
import shutil
import subprocess
import sys
import tempfile
import time

here = os.path.dirname(os.path.abspath(__file__))
build = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build")
runs = int(os.environ.get("RUNS", "3"))
tool = os.path.join(build, "apps/tarvik-tool/tarvik-tool")
checksum_pass = os.path.join(build, "bench/nmea_checksum_pass")
data = os.path.join(build, "bench-data")
os.makedirs(data, exist_ok=True)
root = tempfile.mkdtemp()


def log(size_mb, full):
    path = os.path.join(data, "%s-%d.nmea" % ("full" if full else "gga-rmc", size_mb))
    if not os.path.exists(path):
        subprocess.run([sys.executable, os.path.join(here, "make-nmea-log.py"), path, str(size_mb)]
                       + (["--full"] if full else []), check=True)
    return path


def best(command, stdin_path=None):
    """Smallest wall time and smallest CPU time (user + system of the children) over the runs."""
    walls, cpus = [], []
    for _ in range(runs):
        before = resource.getrusage(resource.RUSAGE_CHILDREN)
        start = time.perf_counter()
        with open(stdin_path or os.devnull, "rb") as stdin, open(os.devnull, "wb") as null:
            subprocess.run(command, stdin=stdin, stdout=null, stderr=null, check=False,
                           env=dict(os.environ, TZ="UTC"))
        walls.append(time.perf_counter() - start)
        after = resource.getrusage(resource.RUSAGE_CHILDREN)
        cpus.append(after.ru_utime - before.ru_utime + after.ru_stime - before.ru_stime)
    return min(walls), min(cpus)


def main():
    peers = [
        ("checksum pass (floor)", lambda f: ([checksum_pass, f], None)),
        ("tarvik-tool track read", lambda f: ([tool, "--root", root, "track", "read", f,
                                               "--now", "2026-05-22T12:00:00Z"], None)),
        ("tarvik-tool track read --details", lambda f: ([tool, "--root", root, "track", "read", f, "--details",
                                                         "--now", "2026-05-22T12:00:00Z"], None)),
    ]
    if shutil.which("gpsbabel"):
        peers.append(("gpsbabel -t nmea -> unicsv", lambda f: (["gpsbabel", "-t", "-i", "nmea", "-f", f,
                                                                "-o", "unicsv,utc=0", "-F", os.devnull], None)))
    if shutil.which("gpsdecode"):
        peers.append(("gpsdecode", lambda f: (["gpsdecode"], f)))
    print("| log | MB | command | wall s | CPU s | MB/s (wall) |")
    print("|---|---|---|---|---|---|")
    for full in (False, True):
        for size_mb in (10, 100):
            path = log(size_mb, full)
            megabytes = os.path.getsize(path) / 1e6
            for name, make in peers:
                command, stdin_path = make(path)
                wall, cpu = best(command, stdin_path)
                print("| %s | %.0f | %s | %.3f | %.3f | %.0f |" % ("full" if full else "GGA+RMC", megabytes, name,
                                                                  wall, cpu, megabytes / wall), flush=True)
    shutil.rmtree(root)


if __name__ == "__main__":
    main()
