"""Figures of qkdb (matplotlib is needed only here, and only when a figure is asked for)."""

from __future__ import annotations

import math


def _pyplot():
    try:
        import matplotlib.pyplot as plt
    except ImportError as error:  # the rest of qkdb works without matplotlib
        raise ImportError("qkdb's figures need matplotlib (Debian: python3-matplotlib)") from error
    return plt


def plot_wall(wall, ax=None):
    """Over 24 h: the outside air's temperature wave (amplitude 1 K, peak at 15:00) and the inside
    surface's answer, drawn ν times enlarged so that both show (its amplitude is 1/ν K), its peak
    delayed by the wall's delay; and the through-wall response terms hour by hour as bars on a second
    scale. Returns the axes of the waves."""
    plt = _pyplot()
    if ax is None:
        _, ax = plt.subplots(figsize=(8, 4.5))
    hours = [h / 4 for h in range(24 * 4 + 1)]
    peak = 15.0
    inside_peak = (peak + wall.delay_h) % 24
    outside = [math.cos(2 * math.pi * (t - peak) / 24) for t in hours]
    inside = [math.cos(2 * math.pi * (t - inside_peak) / 24) for t in hours]
    terms = ax.twinx()
    terms.bar([h + 0.5 for h in range(24)], wall.response[1], width=0.6, alpha=0.25, color="tab:gray",
              label="through-wall response terms (right scale)")
    terms.set_ylabel("response term (the 24 sum to 1)")
    ax.set_zorder(terms.get_zorder() + 1)
    ax.patch.set_visible(False)
    ax.plot(hours, outside, color="tab:red", label="outside air, amplitude 1 K")
    ax.plot(hours, inside, color="tab:blue", linestyle="--",
            label=f"inside surface × ν, amplitude 1/ν = {1 / wall.nu:.4f} K")
    ax.axvline(peak, color="tab:red", linewidth=0.8, alpha=0.6)
    ax.axvline(inside_peak, color="tab:blue", linewidth=0.8, alpha=0.6)
    ax.text(inside_peak, 1.06, f"peak {int(inside_peak):02d}:{int(round(inside_peak % 1 * 60)) % 60:02d},\n"
            f"delay {wall.delay_h:.1f} h", ha="center", va="bottom", color="tab:blue", fontsize="small")
    ax.set_xlim(0, 24)
    ax.set_ylim(-1.15, 1.45)
    ax.set_xticks(range(0, 25, 3))
    ax.set_xlabel("hour of the day")
    ax.set_ylabel("temperature wave, K (inside × ν)")
    ax.set_title(f"{wall.code or 'wall'}: U {wall.u:.3f} W/(m²·K), D {wall.d:.2f}, ν {wall.nu:.1f}")
    lines, labels = ax.get_legend_handles_labels()
    bars, bar_labels = terms.get_legend_handles_labels()
    ax.legend(lines + bars, labels + bar_labels, loc="lower left", fontsize="small")
    return ax


def plot_climate(db, cities, ax=None):
    """The heating, winter air-conditioning and summer air-conditioning design temperatures of each city
    side by side. Returns the axes."""
    plt = _pyplot()
    if ax is None:
        _, ax = plt.subplots(figsize=(8, 4.5))
    items = [("heating_db_c", "heating (winter)"), ("winter_ac_db_c", "air conditioning (winter)"),
             ("cooling_db_c", "air conditioning (summer)")]
    climates = [db.weather(city) for city in cities]
    width = 0.8 / len(items)
    for i, (item, label) in enumerate(items):
        values = [getattr(c, item) for c in climates]
        positions = [k + (i - 1) * width for k in range(len(cities))]
        ax.bar(positions, [v if v is not None else 0 for v in values], width=width, label=label)
    ax.axhline(0, color="0.5", linewidth=0.8)
    ax.set_xticks(range(len(cities)))
    ax.set_xticklabels([c.city for c in climates])
    ax.set_ylabel("outdoor design temperature, °C")
    ax.set_title("Outdoor design temperatures (GB 50736)")
    ax.legend(fontsize="small")
    return ax
