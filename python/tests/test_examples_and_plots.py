"""The examples run, and the figures are drawn (matplotlib, without a display)."""

import os
import pathlib
import subprocess
import sys

import matplotlib
import pytest

matplotlib.use("Agg")

import qkdb  # noqa: E402

EXAMPLES = pathlib.Path(__file__).resolve().parent.parent / "examples"


def run(script, *args):
    return subprocess.run([sys.executable, str(EXAMPLES / script), *args], capture_output=True, text=True,
                          env=dict(os.environ))


def test_the_tour_prints_the_standards_values():
    tour = run("tour.py")
    assert tour.returncode == 0, tour.stderr
    assert tour.stdout.startswith("三亚: heating 17.9 °C, cooling 32.8 °C")
    assert "客房: 30.0 m² per person, 22.0 °C in winter, 25.0 °C in summer" in tour.stdout


def test_the_figure_is_rendered(tmp_path):
    out = tmp_path / "wall-wave.png"
    figure = run("wall_figure.py", str(out))
    assert figure.returncode == 0, figure.stderr
    assert out.read_bytes()[:8] == b"\x89PNG\r\n\x1a\n"
    # The figure in docs/ is the one this script makes: same size in pixels.
    shipped = pathlib.Path(__file__).resolve().parents[2] / "docs" / "images" / "wall-wave.png"
    assert shipped.read_bytes()[16:24] == out.read_bytes()[16:24]


def test_a_wall_and_a_climate_comparison_are_drawn():
    import matplotlib.pyplot as plt

    wall = qkdb.Wall([(0.24, 0.81, 1800, 1.05, "brick")])
    ax = wall.plot()
    outside, inside = ax.get_lines()[:2]
    # The inside surface's wave peaks the wall's delay after the outside air's (drawn every 15 min).
    peak_of = lambda line: line.get_xdata()[list(line.get_ydata()).index(max(line.get_ydata()))]  # noqa: E731
    assert (peak_of(outside) + wall.delay_h) % 24 == pytest.approx(peak_of(inside), abs=0.125)
    # Its amplitude, 1/ν, is in its label (the wave is drawn ν times enlarged).
    assert f"{1 / wall.nu:.4f} K" in inside.get_label()
    ax = qkdb.open().plot_climate(["哈尔滨", "郑州", "三亚"])
    assert [t.get_text() for t in ax.get_xticklabels()] == ["哈尔滨", "郑州", "三亚"]
    plt.close("all")
