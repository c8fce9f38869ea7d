"""A short tour of qkdb: a city's design climate, a catalogue wall sized to a U limit, a room's loads.

Run from the build tree:  PYTHONPATH=build/default/python python3 python/examples/tour.py
"""

import qkdb

db = qkdb.open()  # the shipped reference database

sanya = db.weather("三亚")
print(f"{sanya.city}: heating {sanya.heating_db_c} °C, cooling {sanya.cooling_db_c} °C (dry bulb), "
      f"{sanya.cooling_wb_c} °C (wet bulb); weather file {sanya.epw_file}")

wall = db.walls("09J908-3 XPS板保温外墙")[0]
print(f"{wall.code}: U {wall.u_winter:.3f} W/(m²·K) in winter, D {wall.d:.2f}, "
      f"decrement {wall.decrement:.3f}, delay {wall.delay_h:.1f} h, ν {wall.nu:.1f}")
layer, thickness = wall.thickness_for(0.4, winter=True)
print(f"for U 0.4 in winter: layer {layer} ({wall.layers[layer]['name']}) {thickness * 1000:.0f} mm")

guest = db.room("客房")
print(f"{guest['RoomType']} {guest['RoomUse']}: {guest['RenYuanMD']} m² per person, "
      f"{guest['DongJiSNSJWD']} °C in winter, {guest['XiaJiSNSJWD']} °C in summer, "
      f"fresh air {guest['XinFengL']} m³/(h·person)")
