"""Renders the figure of docs/python.md and the README: the daily temperature wave through a brick wall
with 80 mm of EPS (layers of the GB 50176-93 table and the 09J908-3 atlas), with its response terms.

    PYTHONPATH=build/default/python python3 python/examples/wall_figure.py docs/images/wall-wave.png
"""

import sys

import matplotlib

matplotlib.use("Agg")  # no display needed
import matplotlib.pyplot as plt  # noqa: E402

import qkdb  # noqa: E402

wall = qkdb.Wall(
    [
        {"name": "抗裂砂浆 M5", "thickness": 0.005, "conductivity": 0.87, "density": 1700, "specific_heat": 1.05},
        {"name": "模塑聚苯板 EPS", "thickness": 0.08, "conductivity": 0.041, "density": 20, "specific_heat": 1.38},
        {"name": "重砂浆砌筑粘土砖砌体", "thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
        {"name": "石灰砂浆", "thickness": 0.02, "conductivity": 0.81, "density": 1600, "specific_heat": 1.05},
    ],
    code="240 mm brick + 80 mm EPS",
)
figure, ax = plt.subplots(figsize=(8, 4.5), dpi=100)
wall.plot(ax)
figure.tight_layout()
figure.savefig(sys.argv[1] if len(sys.argv) > 1 else "wall-wave.png", metadata={"Software": None})
print(f"U {wall.u:.3f}, D {wall.d:.2f}, ν {wall.nu:.1f}, delay {wall.delay_h:.1f} h")
