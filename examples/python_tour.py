# %% [markdown]
# # A tour of the package, cell by cell
#
# `python3 examples/python_tour.py [FOLDER]` runs all cells and leaves their plots in the folder (`tour-plots` if none is named); editors that
# know `# %%` run them one at a time. It needs matplotlib.

# %%
import pathlib
import sys

import matplotlib

matplotlib.use("Agg")
import matplotlib.pyplot as plt  # noqa: E402
import numpy as np  # noqa: E402

import orvik  # noqa: E402
from orvik import interpolate, stats  # noqa: E402
from orvik.random import PHILOX4X32X10, SOBOL  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
PLOTS = pathlib.Path(sys.argv[1] if len(sys.argv) > 1 else "tour-plots")
PLOTS.mkdir(parents=True, exist_ok=True)


def keep(name):
    """Saves the present figure."""
    plt.tight_layout()
    plt.savefig(PLOTS / f"{name}.png", dpi=80)
    plt.close()
    print(f"  plot: {name}.png")


# %% [markdown]
# ## Functions at three levels of accuracy
#
# Ufuncs work as NumPy's do; `orvik.accuracy` chooses the level for a while. The errors are measured against NumPy's long doubles.

# %%
x = np.linspace(-10, 10, 4001)
exact = np.exp(x.astype(np.longdouble))
plt.figure(figsize=(7, 3))
print("Functions")
for level in ("HA", "LA", "EP"):
    with orvik.accuracy(level):
        y = orvik.exp(x)
    errors = np.abs((y - exact) / np.spacing(np.asarray(exact, np.float64))).astype(float)
    print(f"  exp at {level}: worst error {errors.max():.2g} units of the last place")
    plt.semilogy(x, np.maximum(errors, 1e-4), ".", markersize=2, label=level)
plt.xlabel("x")
plt.ylabel("error of exp, ulp")
plt.legend()
keep("levels")

# %% [markdown]
# ## The Nile, 1871 to 1970
#
# Did the flow at Aswan fall in 1898? The difference of the means before and after, and where it would lie if the years were exchangeable:
# permutations drawn by NumPy's Generator over one of our streams.

# %%
year, flow = np.loadtxt(HERE / "data" / "nile.csv", delimiter=",", skiprows=1, unpack=True)
before, after = stats.summary(flow[year < 1898]), stats.summary(flow[year >= 1898])
print("Nile")
print(f"  means {before.mean:.1f} (of {before.count}) and {after.mean:.1f} (of {after.count}), "
      f"deviations {before.variance ** 0.5:.1f} and {after.variance ** 0.5:.1f}")
observed = before.mean - after.mean
rng = np.random.Generator(PHILOX4X32X10(1871))
shuffled = rng.permuted(np.tile(flow, (20000, 1)), axis=1)
differences = shuffled[:, :before.count].mean(axis=1) - shuffled[:, before.count:].mean(axis=1)
low, high = stats.quantile(differences, [0.0005, 0.9995])
print(f"  difference {observed:.1f}; 99.9 % of the exchanged ones lie between {low:.1f} and {high:.1f}")
figure, (left, right) = plt.subplots(1, 2, figsize=(9, 3))
coarse = interpolate.Spline(year[5:99:11], flow[:99].reshape(9, 11).mean(axis=1), "akima")  # means of eleven years
left.plot(year, flow, ".", markersize=4)
left.plot(year, coarse(year))
left.set_xlabel("year")
left.set_ylabel("flow, 10^8 m^3")
right.hist(differences, 60)
right.axvline(observed, color="k")
right.set_xlabel("difference of means")
keep("nile")

# %% [markdown]
# ## Air quality in New York, 1973
#
# Ozone, radiation, wind, temperature. A summary of each month's whole days merges into that of the summer; then the holes are filled by
# draws of what may have been there, five times, and the days are searched for outliers.

# %%
table = np.genfromtxt(HERE / "data" / "airquality.csv", delimiter=",", skip_header=1)
names = ["ozone", "radiation", "wind", "temperature"]
days, month = table[:, :4], table[:, 4]
whole = ~np.isnan(days).any(axis=1)
print("Air quality")
summer = stats.Summary(4)
for m in range(5, 10):
    part = stats.Summary(4)
    part.update(days[whole & (month == m)])
    summer.merge(part)
    print(f"  month {m}: {part.count()} whole days, mean temperature {part.mean()[3]:.1f} F")
correlation = summer.correlation()
assert np.allclose(correlation, stats.corrcoef(days[whole]))
print(f"  {summer.count()} days; correlation of ozone and temperature {correlation[0, 3]:.2f}, of ozone and wind {correlation[0, 2]:.2f}")
completed = stats.impute(days, 5)
means = completed[:, :, 0].mean(axis=1)
print(f"  mean ozone of whole days {summer.mean()[0]:.1f}, of {len(days)} days with drawn values {means.min():.1f} to {means.max():.1f}")
assert np.array_equal(completed[0][whole], days[whole])
logs = np.log(days[whole][:, :1])
robust = stats.robust_cov(logs)
far = stats.outliers(logs)
print(f"  days whose logarithm of ozone lies out: {far.sum()}, with {days[whole][far, 0].astype(int).tolist()} parts per billion; "
      f"robust centre of the others {float(np.exp(robust.mean[0])):.1f}")
plt.figure(figsize=(4, 3.4))
plt.imshow(correlation, vmin=-1, vmax=1, cmap="RdBu")
plt.xticks(range(4), names, rotation=30)
plt.yticks(range(4), names)
plt.colorbar()
keep("air-quality")

# %% [markdown]
# ## Integrals by points
#
# The volume of a five-dimensional ball by random and by quasi-random points: errors fall as n^(-1/2) and nearly as n^(-1).

# %%
exact_volume = 8 * np.pi**2 / 15
sizes = 2 ** np.arange(6, 18)
errors = {}
for label, stream in (("Philox", PHILOX4X32X10(5)), ("Sobol", SOBOL(5))):
    points = stream.uniform(-1.0, 1.0, size=(sizes[-1], 5))
    inside = np.cumsum((points**2).sum(axis=1) <= 1)
    errors[label] = np.abs(32 * inside[sizes - 1] / sizes - exact_volume)
print("Integrals")
print(f"  errors at {sizes[-1]} points: random {errors['Philox'][-1]:.1e}, Sobol's {errors['Sobol'][-1]:.1e}")
plt.figure(figsize=(5, 3))
for label, error in errors.items():
    plt.loglog(sizes, error, "o-", markersize=3, label=label)
plt.xlabel("points")
plt.ylabel("error of the volume")
plt.legend()
keep("integrals")

# %% [markdown]
# ## Kinds of splines
#
# The same points, and what the kinds make of a step: a natural spline swings, local kinds do not.

# %%
knots = np.arange(9.0)
step = np.array([0, 0, 0, 0, 1, 1, 1, 1, 1.0])
t = np.linspace(0, 8, 801)
plt.figure(figsize=(6, 3))
print("Splines")
for kind in ("natural", "akima", "hyman"):
    spline = interpolate.Spline(knots, step, kind)
    values = spline(t)
    print(f"  {kind}: swings {max(values.max() - 1, -values.min()):.3f} beyond the step, integral {spline.integrate(0, 8):.3f}")
    plt.plot(t, values, label=kind)
plt.plot(knots, step, "k.", markersize=5)
plt.legend()
keep("splines")
