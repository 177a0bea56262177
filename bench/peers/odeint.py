"""Candidates scored by SciPy's odeint: ms a candidate."""
import random
import sys
import time

import numpy
from scipy.integrate import odeint

TIMES = numpy.linspace(0, 45, 13)
YXS, ALPHA, BETA, YPS, MS, KDP = 0.27, 1.5, 0.01, 0.45, 0.01, 0.001


def balances(state, _, mu_max, ks, kis, cp_ast, n):
    cx, cs, cp = state
    cs_seen, cp = max(cs, 0.0) if cs >= 1e-4 else 0.0, min(cp, cp_ast)
    mu = mu_max * cs_seen / (cs_seen + ks + cs_seen * cs_seen / kis) * (1 - cp / cp_ast) ** n
    production = ALPHA * mu + (BETA if cs <= 10 else 0.0)
    return cx * mu, -cx * (MS + mu / YXS + production / YPS), cx * production - KDP * cp


def curve(x, cs0):
    return odeint(balances, (0.5, cs0, 0.1), TIMES, args=tuple(x), rtol=1e-6, atol=1e-6)


SUBSTRATES = (40, 60, 80)
DATA = [curve((0.3, 8, 90, 60, 1.3), cs0) for cs0 in SUBSTRATES]
LOWER, UPPER = (0.05, 1, 20, 40, 0.3), (1, 30, 300, 120, 3)
random.seed(5471)
count = int(sys.argv[1])
began = time.perf_counter()
for _ in range(count):
    x = [random.uniform(low, high) for low, high in zip(LOWER, UPPER)]
    total = 0.0
    for cs0, data in zip(SUBSTRATES, DATA):
        difference = (curve(x, cs0) - data) / data.max(axis=0)
        total += (difference[:-1] ** 2).sum()
print(1000 * (time.perf_counter() - began) / count)
