"""The catalogue and the room uses from Python: the same answers as the qkdb commands."""

import json
import math
import os
import subprocess

import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import qkdb


def tool_json(*args):
    run = subprocess.run([os.environ["QKDB_TOOL"], *args, "--json"], capture_output=True, text=True)
    assert run.returncode == 0, run.stderr
    return json.loads(run.stdout)


@pytest.fixture(scope="module")
def db():
    return qkdb.open()


def test_materials_are_the_tools(db):
    assert db.materials() == tool_json("materials")
    assert db.materials(search="聚苯") == tool_json("materials", "--search", "聚苯")
    assert db.materials(type="09J908-3 保温材料") == tool_json("materials", "--type", "09J908-3 保温材料")


def test_polystyrene_boards_have_their_values_and_s24(db):
    eps = next(m for m in db.materials(search="eps") if m["name"] == "模塑聚苯板 EPS")
    assert (eps["density_kg_m3"], eps["conductivity_w_mk"], eps["specific_heat_kj_kgk"]) == (20.0, 0.041, 1.38)
    # S24 = √(2π·λ·c·ρ / 86.4), c in kJ/(kg·K): the daily period's heat-storage coefficient.
    assert eps["s24_w_m2k"] == pytest.approx(math.sqrt(2 * math.pi * 0.041 * 1.38 * 20 / 86.4), rel=1e-12)
    with pytest.raises(LookupError):
        db.materials(type="玻璃")


def test_walls_of_a_catalogue_type_compute_as_the_tool_does(db):
    walls = db.walls("09J908-3 XPS板保温外墙")
    answer = tool_json("walls", "--type", "09J908-3 XPS板保温外墙")
    assert [w.code for w in walls] == [a["code"] for a in answer]
    for wall, expected in zip(walls, answer):
        assert (wall.u, wall.u_winter, wall.d, wall.decrement, wall.delay_h) == (
            expected["U"], expected["U_winter"], expected["D"], expected["decrement"], expected["delay_h"])
    with pytest.raises(LookupError):
        db.walls("玻璃幕墙")


def test_rooms_and_a_room_are_the_tools(db):
    assert db.rooms() == tool_json("rooms")
    assert db.rooms(type="旅馆建筑") == tool_json("rooms", "--type", "旅馆建筑")
    guest = db.room("客房")
    assert guest == tool_json("rooms", "客房")
    # JGJ/T 449-2018 Appendix C, hotel guest room: 30 m² per person, 22 / 25 °C.
    assert (guest["RenYuanMD"], guest["DongJiSNSJWD"], guest["XiaJiSNSJWD"]) == (30.0, 22.0, 25.0)
    assert guest["DongJiSNSJXDSD"] is None and guest["LaoDongQDName"] is None


def test_a_rooms_schedules(db):
    guest = db.room("客房", schedules=True)
    assert len(guest["Schedules"]) == 60
    assert all(len(s["hours"]) == 24 for s in guest["Schedules"])
    assert guest["Schedules"] == tool_json("rooms", "客房", "--schedules")["Schedules"]


def test_unknown_and_ambiguous_room_names_are_lookup_errors(db):
    with pytest.raises(LookupError, match="did you mean 客房"):
        db.room("客防")
    with pytest.raises(LookupError, match="several room types"):
        db.room("楼梯间")
    assert db.room("楼梯间", type="学校建筑")["RoomType"] == "学校建筑"
    with pytest.raises(LookupError):
        db.rooms(type="体育建筑")


@settings(max_examples=200, deadline=None)
@given(st.text(max_size=12), st.one_of(st.none(), st.text(max_size=6)))
def test_any_name_is_an_answer_or_a_lookup_error(name, type_name):
    db = qkdb.open()
    for ask in (lambda: db.weather(name), lambda: db.room(name, type=type_name),
                lambda: db.materials(search=name, type=type_name), lambda: db.walls(name)):
        try:
            ask()
        except LookupError as error:
            assert "\n" not in str(error)
