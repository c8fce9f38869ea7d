"""qkdb.Wall: the same numbers as "qkdb wall", and bad layers refused without a crash."""

import json
import math
import os
import subprocess

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import qkdb

# A brick wall: 20 mm lime plaster, 240 mm clay brick, 20 mm lime plaster (GB 50176-93 values).
BRICK = [
    {"name": "石灰砂浆", "thickness": 0.02, "conductivity": 0.81, "density": 1600, "specific_heat": 1.05},
    {"name": "重砂浆砌筑粘土砖砌体", "thickness": 0.24, "conductivity": 0.81, "density": 1800, "specific_heat": 1.05},
    {"name": "石灰砂浆", "thickness": 0.02, "conductivity": 0.81, "density": 1600, "specific_heat": 1.05},
]


def tool_wall(wall):
    run = subprocess.run([os.environ["QKDB_TOOL"], "wall", "--json"], input=json.dumps(wall), capture_output=True, text=True)
    return run


def test_the_same_numbers_as_the_tool():
    wall = qkdb.Wall(BRICK)
    answer = json.loads(tool_wall({"layers": BRICK}).stdout)
    assert wall.u == answer["U"]
    assert wall.u_winter == answer["U_winter"]
    assert wall.u_internal == answer["U_internal"]
    assert wall.d == answer["D"]
    assert wall.decrement == answer["decrement"]
    assert wall.delay_h == answer["delay_h"]
    harmonics = np.array([[h["attenuation_multiple"], h["phase"], h["inside_modulus"], h["inside_phase"]]
                          for h in answer["harmonics"]])
    assert np.array_equal(wall.harmonics, harmonics)
    response = np.array([answer["response"][k] for k in ("inside", "through", "inside_ramp", "inside_step")])
    assert np.array_equal(wall.response, response)


def test_u_is_one_over_the_resistances():
    # 1 / (1/8.7 + Σ d/λ + 1/18.6), the layers' resistances by hand.
    resistance = 0.02 / 0.81 + 0.24 / 0.81 + 0.02 / 0.81
    assert qkdb.Wall(BRICK).u == pytest.approx(1 / (1 / 8.7 + resistance + 1 / 18.6), rel=1e-12)


def test_nu_is_the_inside_coefficient_over_f_times_u():
    wall = qkdb.Wall(BRICK)
    assert wall.nu == pytest.approx(8.7 / (wall.decrement * wall.u), rel=1e-15)
    assert wall.nu > 1


def test_tuples_are_layers_too():
    tuples = [(l["thickness"], l["conductivity"], l["density"], l["specific_heat"], l["name"]) for l in BRICK]
    assert qkdb.Wall(tuples).u == qkdb.Wall(BRICK).u


def test_thickness_for_gives_the_u_asked_for():
    wall = qkdb.Wall(BRICK)
    layer, thickness = wall.thickness_for(wall.u / 2)
    layers = [dict(l) for l in BRICK]
    layers[layer]["thickness"] = thickness
    assert qkdb.Wall(layers).u == pytest.approx(wall.u / 2, rel=1e-9)
    layer, thickness = wall.thickness_for(0.5, layer=0, winter=True)
    layers = [dict(l) for l in BRICK]
    layers[0]["thickness"] = thickness
    assert layer == 0
    assert qkdb.Wall(layers).u_winter == pytest.approx(0.5, rel=1e-12)
    with pytest.raises(IndexError):
        wall.thickness_for(0.5, layer=3)
    with pytest.raises(ValueError):
        wall.thickness_for(50.0, layer=1)


def test_bad_layers_raise_the_tools_message():
    bad = [dict(BRICK[0], conductivity=-1)]
    with pytest.raises(ValueError) as raised:
        qkdb.Wall(bad)
    assert str(raised.value) == tool_wall({"layers": bad}).stderr.strip().removeprefix("qkdb wall: ")
    with pytest.raises(ValueError):
        qkdb.Wall([])
    with pytest.raises(ValueError):
        qkdb.Wall([(0.1, 0.5)])
    with pytest.raises(ValueError):
        qkdb.Wall([dict(BRICK[0], thickness=float("nan"))])


def test_a_value_in_another_unit_is_refused_unless_forced():
    in_mm = [dict(BRICK[0]), dict(BRICK[1], thickness=240), dict(BRICK[2])]
    with pytest.raises(ValueError) as raised:
        qkdb.Wall(in_mm)
    assert "thickness is in metres" in str(raised.value) and "force=True" in str(raised.value)
    assert tool_wall({"layers": in_mm}).returncode == 2
    assert qkdb.Wall(in_mm, force=True).u < 0.01


layer = st.fixed_dictionaries(
    {
        "thickness": st.one_of(st.floats(), st.integers(), st.text(max_size=3), st.none()),
        "conductivity": st.one_of(st.floats(), st.integers(-5, 5)),
        "density": st.one_of(st.floats(), st.integers(-5, 3000)),
        "specific_heat": st.one_of(st.floats(), st.integers(-1, 5)),
    },
    optional={"name": st.text(max_size=20), "conductivity_correction": st.floats(), "colour": st.text(max_size=3)},
)


@settings(max_examples=300, deadline=None)
@given(st.lists(layer, max_size=6))
def test_any_layers_give_a_wall_or_a_value_error(layers):
    try:
        wall = qkdb.Wall(layers)
    except ValueError as error:
        assert "\n" not in str(error)
        return
    # What the wall takes is finite and not negative (the rest was refused): so is its U, which is 0 for
    # a layer whose conductance is too small to be told from none (an infinite resistance).
    assert math.isfinite(wall.u) and wall.u >= 0
    assert math.isfinite(wall.u_winter) and wall.u_winter >= 0
