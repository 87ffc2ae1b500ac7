"""The simulation on 1, 2, 3 and 4 ranks: the same draws, bit for bit, and the same moments to their last digits."""

import math
import pathlib
import subprocess
import sys

SKIP = 77
DIGITS = 1e-13


def run(launcher, program, ranks):
    command = [launcher, "--allow-run-as-root", "--oversubscribe", "-n", str(ranks), program]
    lines = subprocess.run(command, check=True, capture_output=True, text=True, timeout=100).stdout.splitlines()
    assert lines[0].startswith("draws ") and lines[1].startswith("moments "), lines
    return lines[0], [float(word) for word in lines[1].split()[1:]]


def main():
    launcher, program = sys.argv[1:]
    if not all(pathlib.Path(path).is_file() for path in (launcher, program)):
        print("no Open MPI here")
        return SKIP
    draws, moments = run(launcher, program, 1)
    print(draws)
    # Two means, variances, skewnesses, four covariances, two minima and maxima. Of exp(0.01 + 0.2 z) the mean is exp(0.03).
    failed = len(moments) != 14 or abs(moments[0] - math.exp(0.03)) > 4 * math.sqrt(moments[2] / 1e6)
    for ranks in (2, 3, 4):
        other_draws, others = run(launcher, program, ranks)
        worst = max(abs(a - b) / max(abs(a), 1) for a, b in zip(moments, others, strict=True))
        print(f"{ranks} ranks: {'the same draws' if other_draws == draws else other_draws}, moments within {worst:.1e}")
        failed |= other_draws != draws or not worst <= DIGITS
    return 1 if failed else 0


sys.exit(main())
