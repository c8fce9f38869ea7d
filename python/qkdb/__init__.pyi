"""Type stubs of qkdb (see the module's docstrings and docs/python.md)."""

from typing import Any, Iterable, Mapping, Optional, Sequence, Tuple, Union

import numpy as np

Layer = Union[Mapping[str, Any], Sequence[Any]]

class Weather:
    """The design climate of one city; every weather item by its item name and the main ones by a
    readable name with the unit in it (heating_db_c, °C). None where the database gives no value."""

    def __init__(self, answer: Mapping[str, Any]) -> None: ...
    def __getattr__(self, name: str) -> Any: ...
    @property
    def items(self) -> dict: ...
    @property
    def latitude_deg(self) -> Optional[float]: ...
    @property
    def longitude_deg(self) -> Optional[float]: ...
    city: Optional[str]
    province: Optional[str]
    country: Optional[str]
    borrowed_from: Optional[str]
    borrowed_for: Optional[str]
    distance_km: Optional[float]
    epw_own: Optional[bool]
    epw_station: Optional[str]
    epw_distance_km: Optional[float]
    city_id: Optional[int]  # CId
    climate_zone_code: Optional[int]  # DistrictCode
    winter_pressure_hpa: Optional[float]  # DjDqy
    summer_pressure_hpa: Optional[float]  # XjDqy
    heating_db_c: Optional[float]  # DjCnSwGqWd
    winter_ac_db_c: Optional[float]  # DjKtSwGqWd
    cooling_db_c: Optional[float]  # XjKtSwGqWd
    cooling_daily_mean_c: Optional[float]  # XjKtRPjWd
    summer_daily_range_k: Optional[float]  # XjJsRJC
    cooling_wb_c: Optional[float]  # XjKtSwSqWd
    summer_wind_direction_deg: Optional[float]  # Xjzdfx
    summer_wind_direction_speed_ms: Optional[float]  # Xjswzdfxpjfs
    winter_wind_direction_deg: Optional[float]  # Djzdfx
    winter_wind_direction_speed_ms: Optional[float]  # Djswzdfxpjfs
    coldest_month_rh_pct: Optional[float]  # ZlYPjXdSd
    hottest_month_rh_pct: Optional[float]  # ZRYPjXdSd
    summer_wind_speed_ms: Optional[float]  # XjSwPjFs
    summer_transparency_grade: Optional[float]  # XjKtDqTmDDj
    summer_ventilation_db_c: Optional[float]  # XjTfSwGqWd
    summer_ventilation_rh_pct: Optional[float]  # XjTfSwXdSd
    winter_ventilation_db_c: Optional[float]  # DjTfSwGqWd
    winter_ac_rh_pct: Optional[float]  # DjKtSwXdSd
    winter_wind_speed_ms: Optional[float]  # DjSwPjFs
    ground_annual_mean_c: Optional[float]  # DBMNPJWD
    ground_hottest_month_mean_c: Optional[float]  # DBMZRYPJWD
    ground_coldest_month_mean_c: Optional[float]  # DBMZLYPJWD
    city_type: Optional[str]  # CityType
    epw_file: Optional[str]  # EpwName
    epw_type: Optional[str]  # EpwType
    elevation_m: Optional[float]  # Elevation
    time_zone_h: Optional[float]  # TimeZone
    summer_wind_compass: Optional[str]  # SumWindDef
    winter_wind_compass: Optional[str]  # WinWindDef

class Wall:
    """A wall of layers, outside first; m, W/(m·K), kg/m³, kJ/(kg·K); coefficients W/(m²·K)."""

    layers: list
    code: Optional[str]
    def __init__(self, layers: Iterable[Layer], inside: float = 8.7, outside: float = 18.6,
                 outside_winter: float = 23.0, code: Optional[str] = None, force: bool = False) -> None: ...
    @property
    def u(self) -> float: ...
    @property
    def u_winter(self) -> float: ...
    @property
    def u_internal(self) -> float: ...
    @property
    def d(self) -> float: ...
    @property
    def decrement(self) -> float: ...
    @property
    def delay_h(self) -> float: ...
    @property
    def nu(self) -> float: ...
    @property
    def harmonics(self) -> np.ndarray: ...
    @property
    def response(self) -> np.ndarray: ...
    def thickness_for(self, u: float, layer: Optional[int] = None, winter: bool = False) -> Tuple[int, float]: ...
    def plot(self, ax: Any = None) -> Any: ...

class Database:
    """The reference database, bound for every record class."""

    def __init__(self, path: Optional[str] = None) -> None: ...
    @property
    def path(self) -> str: ...
    def weather(self, name: Optional[str] = None, *, city_id: Optional[int] = None,
                near: Optional[Tuple[float, float]] = None) -> Weather: ...
    def cities(self) -> list: ...
    def tree(self, which: str) -> list: ...
    def walls(self, type_name: str) -> list: ...
    def materials(self, search: Optional[str] = None, type: Optional[str] = None) -> list: ...
    def rooms(self, type: Optional[str] = None) -> list: ...
    def room(self, name: str, type: Optional[str] = None, schedules: bool = False) -> dict: ...
    def plot_climate(self, cities: Iterable[str], ax: Any = None) -> Any: ...

def open(path: Optional[str] = None) -> Database: ...
