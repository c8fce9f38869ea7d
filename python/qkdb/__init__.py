"""qkdb: the reference data of a building thermal-load design system, from Python.

The design climate of every Chinese city of GB 50736 (with its hourly weather file), the envelope
catalogue (materials, walls), the wall calculation (U, thermal inertia D, the decrement and delay of the
daily temperature wave, hourly response terms) and the room uses with their load parameters. See
docs/python.md.

The library binds every record class to one database at a time, for the whole process, and is not
safe for concurrent use: call it from one thread. Each call holds the GIL; a Database opened last
wins, and an older one binds its own again before each call.
"""

from __future__ import annotations

import json as _json
import math as _math
from typing import Any, Iterable, Mapping, Optional, Sequence, Tuple, Union

from . import _qkdb

__all__ = ["open", "Database", "Weather", "Wall"]

# Readable names of the weather items (the weather table's pinyin column names), with their units in
# the name: _c °C, _k kelvin (a difference), _hpa, _pct, _ms m/s, _deg degrees, _m metres.
_WEATHER_NAMES = {
    "CId": "city_id",
    "DistrictCode": "climate_zone_code",
    "DjDqy": "winter_pressure_hpa",
    "XjDqy": "summer_pressure_hpa",
    "DjCnSwGqWd": "heating_db_c",
    "DjKtSwGqWd": "winter_ac_db_c",
    "XjKtSwGqWd": "cooling_db_c",
    "XjKtRPjWd": "cooling_daily_mean_c",
    "XjJsRJC": "summer_daily_range_k",
    "XjKtSwSqWd": "cooling_wb_c",
    "Xjzdfx": "summer_wind_direction_deg",
    "Xjswzdfxpjfs": "summer_wind_direction_speed_ms",
    "Djzdfx": "winter_wind_direction_deg",
    "Djswzdfxpjfs": "winter_wind_direction_speed_ms",
    "ZlYPjXdSd": "coldest_month_rh_pct",
    "ZRYPjXdSd": "hottest_month_rh_pct",
    "XjSwPjFs": "summer_wind_speed_ms",
    "XjKtDqTmDDj": "summer_transparency_grade",
    "XjTfSwGqWd": "summer_ventilation_db_c",
    "XjTfSwXdSd": "summer_ventilation_rh_pct",
    "DjTfSwGqWd": "winter_ventilation_db_c",
    "DjKtSwXdSd": "winter_ac_rh_pct",
    "DjSwPjFs": "winter_wind_speed_ms",
    "DBMNPJWD": "ground_annual_mean_c",
    "DBMZRYPJWD": "ground_hottest_month_mean_c",
    "DBMZLYPJWD": "ground_coldest_month_mean_c",
    "CityType": "city_type",
    "EpwName": "epw_file",
    "EpwType": "epw_type",
    "Elevation": "elevation_m",
    "TimeZone": "time_zone_h",
    "SumWindDef": "summer_wind_compass",
    "WinWindDef": "winter_wind_compass",
}


class Weather:
    """The design climate of one city, read-only.

    Every item of the weather table is an attribute under its item name (``DjCnSwGqWd``) and, for the
    main ones, a readable name with its unit (``heating_db_c``: the winter heating outdoor design
    temperature, °C). Units are the weather table's: pressures hPa (design days Pa), relative
    humidities %, temperatures °C, wind m/s, elevation m. The position is in degrees
    (``latitude_deg``, ``longitude_deg``); the table's ``WD``/``JD`` are radians. None where the
    database does not give a value.

    ``city``, ``province``, ``country`` name the city whose climate it is; ``borrowed_from`` is set
    when a city without a weather file of its own borrowed that city's climate (``borrowed_for`` the
    city asked for, ``distance_km`` between the two). ``epw_own``, ``epw_station`` and
    ``epw_distance_km`` say where the hourly weather file comes from.
    """

    def __init__(self, answer: Mapping[str, Any]):
        object.__setattr__(self, "_items", dict(answer))

    def __setattr__(self, name: str, value: Any) -> None:
        raise AttributeError("a weather is read-only: it is what the database holds")

    def __getattr__(self, name: str) -> Any:
        items = self.__dict__.get("_items", {})
        if name in items:
            return items[name]
        for item, readable in _WEATHER_NAMES.items():
            if readable == name:
                return items.get(item)
        raise AttributeError(f"a weather has no item or attribute {name!r}")

    def __dir__(self) -> Iterable[str]:
        return sorted(set(self._items) | set(_WEATHER_NAMES.values()) | set(object.__dir__(self)))

    @property
    def items(self) -> dict:
        """Every item under its item name, in the table's units (a copy)."""
        return dict(self._items)

    @property
    def latitude_deg(self) -> Optional[float]:
        """Latitude, degrees north (the table's WD is radians)."""
        wd = self._items.get("WD")
        return None if wd is None else _math.degrees(wd)

    @property
    def longitude_deg(self) -> Optional[float]:
        """Longitude, degrees east (the table's JD is radians)."""
        jd = self._items.get("JD")
        return None if jd is None else _math.degrees(jd)

    city = property(lambda self: self._items.get("CityName"), doc="The city whose climate it is.")
    province = property(lambda self: self._items.get("ProvinceName"), doc="Its province.")
    country = property(lambda self: self._items.get("CountryName"), doc="Its country.")
    borrowed_from = property(lambda self: self._items.get("BorrowedFrom"),
                             doc="The city whose climate was borrowed, or None for a climate of its own.")
    borrowed_for = property(lambda self: self._items.get("BorrowedFor"), doc="The city asked for, when borrowed.")
    distance_km = property(lambda self: self._items.get("DistanceKm"),
                           doc="Great-circle distance, km: to the city borrowed from, or from the point asked for.")
    epw_own = property(lambda self: self._items.get("EpwOwn"),
                       doc="True when the hourly weather file is the city's own station's.")
    epw_station = property(lambda self: self._items.get("EpwStation"), doc="The weather file's station.")
    epw_distance_km = property(lambda self: self._items.get("EpwDistanceKm"),
                               doc="Distance from the city to the weather file's station, km.")

    def __repr__(self) -> str:
        return f"<qkdb.Weather {self.city} heating_db_c={self.heating_db_c} cooling_db_c={self.cooling_db_c}>"


_LAYER_KEYS = ("thickness", "conductivity", "density", "specific_heat")


def _layer(layer: Union[Mapping[str, Any], Sequence[Any]]) -> dict:
    if isinstance(layer, Mapping):
        return dict(layer)
    values = list(layer)
    if len(values) not in (4, 5):
        raise ValueError("a layer as a tuple is (thickness m, conductivity W/(m·K), density kg/m³, "
                         f"specific heat kJ/(kg·K)[, name]), not {len(values)} values")
    out = dict(zip(_LAYER_KEYS, values[:4]))
    if len(values) == 5:
        out["name"] = values[4]
    return out


class Wall:
    """A wall of layers, outside first, computed as ``qkdb wall`` computes it.

    Layers are dicts (``name``, ``thickness`` m, ``conductivity`` W/(m·K), ``density`` kg/m³,
    ``specific_heat`` kJ/(kg·K), optional ``conductivity_correction`` and ``density_correction``) or
    tuples ``(thickness, conductivity, density, specific_heat[, name])``. A layer of density or
    specific heat 0 has no mass: its conductivity is then a conductance, W/(m²·K). Surface
    coefficients, W/(m²·K): ``inside`` 8.7, ``outside`` 18.6 (summer) and ``outside_winter`` 23.0.

    Results: ``u``, ``u_winter``, ``u_internal`` (W/(m²·K)); ``d`` the thermal inertia index;
    ``decrement`` the decrement factor f of the daily outside temperature wave (ISO 13786) and
    ``delay_h`` its delay, h; ``nu`` GB 50176's 衰减倍数 ν = α_i/(f·U), the outside air's amplitude
    over the inside surface's; ``harmonics`` (12×4: attenuation multiple, phase, inside modulus, inside
    phase per harmonic of the day) and ``response`` (4×24: inside, through, inside ramp and inside step
    response terms, hour by hour) as numpy arrays. Bad layers raise ValueError with the tool's message.
    A value beyond any building material (a layer thicker than 2 m, λ above 500 W/(m·K), ρ above
    25 000 kg/m³, c above 10 kJ/(kg·K)) is taken for another unit and refused unless ``force=True``.
    """

    def __init__(self, layers: Iterable[Union[Mapping[str, Any], Sequence[Any]]], inside: float = 8.7,
                 outside: float = 18.6, outside_winter: float = 23.0, code: Optional[str] = None,
                 force: bool = False):
        self.layers = [_layer(layer) for layer in layers]
        self.code = code
        wall = {"inside": inside, "outside": outside, "outside_winter": outside_winter, "layers": self.layers}
        try:
            text = _json.dumps(wall, allow_nan=False)
        except (TypeError, ValueError) as error:
            raise ValueError(f"the wall cannot be read: {error}") from None
        self._wall = _qkdb._Wall(text, bool(force))

    u = property(lambda self: self._wall.u, doc="U with the summer outside coefficient, W/(m²·K).")
    u_winter = property(lambda self: self._wall.u_winter, doc="U with the winter outside coefficient, W/(m²·K).")
    u_internal = property(lambda self: self._wall.u_internal,
                          doc="U with the inside coefficient on both faces (a wall between rooms), W/(m²·K).")
    d = property(lambda self: self._wall.d, doc="The thermal inertia index D = Σ R·S.")
    decrement = property(lambda self: self._wall.decrement, doc="The decrement factor f of the daily wave.")
    delay_h = property(lambda self: self._wall.delay_h, doc="The delay of the daily wave through the wall, h.")
    nu = property(lambda self: self._wall.nu, doc="GB 50176's 衰减倍数 ν = α_i / (f·U).")
    harmonics = property(lambda self: self._wall.harmonics, doc="12×4 numpy array, see the class.")
    response = property(lambda self: self._wall.response, doc="4×24 numpy array, see the class.")

    def thickness_for(self, u: float, layer: Optional[int] = None, winter: bool = False) -> Tuple[int, float]:
        """(layer, thickness in m) that gives the wall the U asked for, W/(m²·K).

        Without a layer, the one the library resizes (the layer with the least λ·a: the insulation);
        ``layer`` (from 0, outside first) chooses another. ``winter`` uses the winter outside
        coefficient, as GB 55015's U limits are winter values.
        """
        return self._wall.thickness_for(u, layer, winter)

    def plot(self, ax=None):
        """Draws the daily outside temperature wave and the inside surface's answer (amplitudes and delay
        marked) and the hourly response terms; returns the matplotlib axes. Needs matplotlib."""
        from ._plots import plot_wall

        return plot_wall(self, ax)

    def __repr__(self) -> str:
        name = f" {self.code}" if self.code else ""
        return f"<qkdb.Wall{name} u={self.u:.3f} d={self.d:.2f} delay_h={self.delay_h:.1f}>"


class Database:
    """The reference database, bound for every record class. Use :func:`open`."""

    def __init__(self, path: Optional[str] = None):
        self._db = _qkdb._Database(path)

    @property
    def path(self) -> str:
        """The SQLite file or PostgreSQL URI."""
        return self._db.path

    def weather(self, name: Optional[str] = None, *, city_id: Optional[int] = None,
                near: Optional[Tuple[float, float]] = None) -> Weather:
        """The design climate of a city: by its name (the stored one, its official name, today's name of
        a renamed city, a station of GB 50736, an English name), by ``city_id``, or the city with a
        weather file nearest ``near`` = (longitude, latitude) in degrees. LookupError with the tool's
        message when there is none (the nearest names are suggested)."""
        return Weather(self._db.weather(name, city_id, near))

    def cities(self) -> list:
        """Every city: dicts with id, name, province and country."""
        return self._db.cities()

    def tree(self, which: str) -> list:
        """One of the library's trees as nested lists of dicts (id, name, level, children), as
        ``qkdb tree --json`` prints it: "weather" (countries, provinces, cities), "envelope"
        (categories, types, codes), "constructions" (construction types, constructions) or "rooms"
        (room types, room uses)."""
        return self._db.tree(which)

    def walls(self, type_name: str) -> list:
        """Every code of an envelope type as a computed :class:`Wall` (the standard coefficients)."""
        return [Wall(w["layers"], w["inside"], w["outside"], w["outside_winter"], code=w["code"])
                for w in self._db.walls(type_name)]

    def materials(self, search: Optional[str] = None, type: Optional[str] = None) -> list:  # noqa: A002
        """The catalogue's constructions (each a material): dicts with id, name, type, density_kg_m3,
        conductivity_w_mk, specific_heat_kj_kgk and s24_w_m2k (the heat-storage coefficient for the daily
        period, W/(m²·K), as the wall calculation derives it), and thermal_resistance_m2k_w for an air
        space (which has no mass; its other values are None). ``search`` keeps the names holding a text
        (Latin letters in any case), ``type`` one construction type (LookupError when there is none)."""
        return self._db.materials(search, type)

    def rooms(self, type: Optional[str] = None) -> list:  # noqa: A002
        """The room types with their room uses: [{"RoomType", "RoomUses": [{"ID", "RoomUse"}]}]; of one
        room type when ``type`` is given (LookupError when there is none)."""
        return self._db.rooms(type)

    def room(self, name: str, type: Optional[str] = None, schedules: bool = False) -> dict:  # noqa: A002
        """One room use's load parameters, keyed by the load-parameter table's item names, None where no
        source gives one, plus RoomType, RoomUse and LaoDongQDName (the labour intensity's name):

        - DongJiSNSJWD / XiaJiSNSJWD: winter / summer indoor design temperature, °C;
        - DongJiSNSJXDSD / XiaJiSNSJXDSD: winter / summer indoor relative humidity, %;
        - RenYuanMD: floor area per person, m²/person; ZhaoMingBZ, SheBeiBZ: lighting and equipment
          power density, W/m²; XinFengL: fresh air per person, m³/(h·person);
        - ShenTouL: infiltration, m³/s per m² of exterior surface; LaoDongQD: labour intensity id 0..4;
        - ZaoYin: noise, dB(A); ZongLengZB … XinFengRZB: load indices, W/m².

        With ``schedules`` also "Schedules": the hourly schedules ([{"kind", "day_type", "unit",
        "hours"}], hour 1 = 00:00–01:00), or None when the database keeps none. A name used in several
        room types needs ``type``. LookupError with the tool's message (the nearest names) when there is
        no such room use."""
        return self._db.room(name, type, schedules)

    def plot_climate(self, cities: Iterable[str], ax=None):
        """Compares the design temperatures of several cities in one bar chart; returns the axes.
        Needs matplotlib."""
        from ._plots import plot_climate

        return plot_climate(self, list(cities), ax)

    def __repr__(self) -> str:
        return f"<qkdb.Database {self.path}>"


def open(path: Optional[str] = None) -> Database:  # noqa: A001 (the module's own open, as sqlite3.connect)
    """Binds the reference database: the given SQLite file or postgresql:// URI, else $QKDB_DATABASE,
    else the shipped one (share/QKModelDataBase/reference.db beside the package). ValueError with the
    reason when it cannot be used."""
    return Database(path)
