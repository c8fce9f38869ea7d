"""The design climate from Python: the same answers as "qkdb weather --json"."""

import json
import math
import os
import subprocess

import pytest

import qkdb


def tool(*args):
    run = subprocess.run([os.environ["QKDB_TOOL"], *args], capture_output=True, text=True)
    return run


@pytest.fixture(scope="module")
def db():
    return qkdb.open()


def test_sanya_heating_temperature_is_the_standards(db):
    # GB 50736-2012 Appendix A, 三亚: winter heating outdoor design temperature 17.9 °C.
    assert db.weather("三亚").heating_db_c == 17.9


def test_every_item_is_the_tools(db):
    for name in ["郑州", "三亚", "Chongqing", "襄阳"]:
        answer = json.loads(tool("weather", name, "--json").stdout)
        weather = db.weather(name)
        assert weather.items == answer, name
        assert weather.DjCnSwGqWd == answer["DjCnSwGqWd"]
        assert weather.city == answer["CityName"]


def test_a_weather_is_read_only(db):
    sanya = db.weather("三亚")
    with pytest.raises(AttributeError):
        sanya.heating_db_c = 0
    with pytest.raises(AttributeError):
        sanya.DjCnSwGqWd = 0
    sanya.items["DjCnSwGqWd"] = 0  # a copy
    assert sanya.heating_db_c == 17.9


def test_readable_names_and_degrees(db):
    zhengzhou = db.weather("郑州")
    assert zhengzhou.heating_db_c == zhengzhou.DjCnSwGqWd
    assert zhengzhou.cooling_db_c == zhengzhou.XjKtSwGqWd
    assert zhengzhou.latitude_deg == pytest.approx(math.degrees(zhengzhou.WD), rel=1e-15)
    assert 34 < zhengzhou.latitude_deg < 35 and 113 < zhengzhou.longitude_deg < 114
    assert zhengzhou.epw_own is True
    assert zhengzhou.borrowed_from is None


def test_by_id_and_near_agree_with_by_name(db):
    zhengzhou = db.weather("郑州")
    assert db.weather(city_id=zhengzhou.CId).items == zhengzhou.items
    near = db.weather(near=(zhengzhou.longitude_deg, zhengzhou.latitude_deg))
    assert near.city == "郑州"
    assert near.distance_km == 0


def test_an_unknown_city_is_a_lookup_error_with_the_tools_message(db):
    with pytest.raises(LookupError) as raised:
        db.weather("郑洲")
    assert str(raised.value) == tool("weather", "郑洲").stderr.strip().removeprefix("qkdb: ")
    with pytest.raises(LookupError):
        db.weather(near=(0.0, 0.0))


def test_exactly_one_way_of_asking(db):
    with pytest.raises(ValueError):
        db.weather()
    with pytest.raises(ValueError):
        db.weather("郑州", city_id=1)
    with pytest.raises(ValueError):
        db.weather(near=(200.0, 0.0))


def test_cities_and_trees(db):
    cities = db.cities()
    assert len(cities) == 294
    assert {"id", "name", "province", "country"} <= set(cities[0])
    tree = db.tree("weather")
    assert tree[0]["name"] == "中国"
    assert sum(len(p["children"]) for p in tree[0]["children"]) == 294
    envelope = db.tree("envelope")
    assert envelope[0]["name"] == "外墙"
    assert any(t["name"] == "ASHRAE外墙" and len(t["children"]) == 3 for t in envelope[0]["children"])
    tool = subprocess.run([os.environ["QKDB_TOOL"], "tree", "envelope", "--json", "--db", db.path],
                          capture_output=True, text=True, check=True)
    assert envelope == json.loads(tool.stdout)
    with pytest.raises(ValueError):
        db.tree("plants")


def test_a_missing_database_is_a_value_error(tmp_path):
    with pytest.raises(ValueError) as raised:
        qkdb.open(str(tmp_path / "none.db"))
    assert "\n" not in str(raised.value)


def test_two_databases_each_answer_from_their_own(tmp_path):
    shipped = qkdb.open()
    other_path = tmp_path / "other.db"
    assert subprocess.run([os.environ["QKDB_TOOL"], "init", "--db", str(other_path)], capture_output=True).returncode == 0
    import sqlite3

    with sqlite3.connect(other_path) as con:
        con.execute("UPDATE Weather SET DjCnSwGqWd = -99 WHERE CId = (SELECT ID FROM City WHERE Name = '三亚')")
    other = qkdb.open(str(other_path))
    assert other.weather("三亚").heating_db_c == -99
    assert shipped.weather("三亚").heating_db_c == 17.9
    assert other.weather("三亚").heating_db_c == -99


def test_a_server_that_does_not_answer_is_a_value_error():
    with pytest.raises(ValueError) as raised:
        qkdb.open("postgresql://qk@127.0.0.1:1/reference?connect_timeout=2")
    assert "\n" not in str(raised.value)


@pytest.mark.skipif(not os.environ.get("QK_PG_URI"), reason="no PostgreSQL server (QK_PG_URI)")
def test_a_server_database_without_the_reference_tables_is_a_value_error():
    with pytest.raises(ValueError) as raised:
        qkdb.open(os.environ["QK_PG_URI"])
    assert "\n" not in str(raised.value)
    # The shipped database still answers after the failed open.
    assert qkdb.open().weather("三亚").heating_db_c == 17.9


def test_every_readable_name_is_its_items_value_and_in_the_stub(db):
    import pathlib
    import re

    zhengzhou = db.weather("郑州")
    for item, readable in qkdb._WEATHER_NAMES.items():
        assert item in zhengzhou.items, item
        assert getattr(zhengzhou, readable) == zhengzhou.items[item], readable
    stub = (pathlib.Path(qkdb.__file__).parent / "__init__.pyi").read_text(encoding="utf-8")
    assert dict(re.findall(r"^    (\w+): Optional\[\w+\]  # (\w+)$", stub, re.M)) == {
        readable: item for item, readable in qkdb._WEATHER_NAMES.items()}
