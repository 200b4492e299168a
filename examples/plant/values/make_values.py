#!/usr/bin/env python3
"""Writes the plant's values as its controller stores them: packed, little-endian, texts in CP1252.

Run it after a change of a value or a type; the .bin files lie beside it and are committed. With
--check it writes nothing and fails when a file is not what is described here.
"""

import calendar
import datetime
import pathlib
import struct
import sys

FOLDER = pathlib.Path(__file__).parent

# Enumerations of PLANT.STDMEMXML
AUS, HAND, AUTOMATIK, STOERUNG = 0, 1, 2, 9
GESCHLOSSEN, GEOEFFNET, FAEHRT, GESTOERT = 0, 1, 2, 255
LAEUFT = 20
NEIN, JA = 0, 1


def text(value, size):
    data = value.encode("cp1252")
    assert len(data) < size, value
    return data.ljust(size, b"\0")


def seconds(year, month, day, hour=0, minute=0, second=0):
    """Seconds since 1970-01-01, without a time zone."""
    return calendar.timegm((year, month, day, hour, minute, second))


def ole(year, month, day, hour, minute, second, millisecond):
    """Days since 1899-12-30; the fraction is the time of day."""
    days = (datetime.date(year, month, day) - datetime.date(1899, 12, 30)).days
    return days + (((hour * 60 + minute) * 60 + second) * 1000 + millisecond) / 86_400_000


def duration(hours=0, minutes=0, seconds=0, milliseconds=0):
    return ((hours * 60 + minutes) * 60 + seconds) * 1000 + milliseconds


def clock(hour, minute=0):
    return (hour * 60 + minute) * 60


def pack(layout, *values):
    return struct.pack("<" + layout, *values)


def motor(name, mode, speed, current, run_up, switchings, service):
    return text(name, 16) + pack("HHfIQI", mode, speed, current, run_up, switchings, service)


def valve(name, position, rest, travel, locked):
    return text(name, 16) + pack("BBIB", position, rest, travel, locked)


def dosing_step(substance, amount, tolerance, valve_number, follow_up):
    return text(substance, 16) + pack("ffBI", amount, tolerance, valve_number, follow_up)


def shift(begin, end, *days):
    return pack("II7B", begin, end, *days)


def alarm(time, source, message):
    return pack("dH", time, source) + text(message, 32)


VALUES = {
    # area 1
    "anlage": text("Dosieranlage Süd 2", 32),
    # area 2
    "betriebsart": pack("H", AUTOMATIK),
    # area 3
    "sicherung": pack("I", seconds(2024, 2, 29, 23, 59, 58)),
    # area 10
    "ruehrwerk": motor("Rührwerk R1", AUTOMATIK, 1450, 12.5, duration(seconds=4, milliseconds=500),
                       5_000_000_000, seconds(2025, 3, 31)),
    # area 11, 3 values
    "pumpen": motor("Pumpe P1", HAND, 2900, 3.2, duration(seconds=1), 120_345,
                    seconds(2024, 12, 24))
    + motor("Pumpe P2", AUTOMATIK, 65535, 0.1, duration(milliseconds=800), 2**64 - 1,
            seconds(2000, 2, 29))
    + motor("Pumpe P3", STOERUNG, 0, -0.0, 0, 0, 0),
    # area 20, 4 values; nobody has defined the position 3
    "ventile": valve("V1 Wasser", GESCHLOSSEN, GESCHLOSSEN, duration(seconds=2, milliseconds=500),
                     NEIN)
    + valve("V2 Zucker", GEOEFFNET, GESCHLOSSEN, duration(seconds=3), NEIN)
    + valve("V3 Säure", FAEHRT, GEOEFFNET, duration(minutes=1, milliseconds=1), JA)
    + valve("V4 Aroma", GESTOERT, 3, 0, JA),
    # area 30
    "temperatur": pack("HffIIff", AUTOMATIK, 72.5, 1.25, duration(minutes=1, seconds=30), 0, 0,
                       100),
    # area 40
    "behaelter": text("Ansatzbehälter Süd", 32) + pack("dff", 1234.5678, 10, 95.5),
    # area 50
    "waage": pack("d5hi", 0.125, 0, -1, 32767, -32768, 1200, -250_000),
    # area 60
    "rezept": pack("H", 17)
    + text('Limonade "süß"', 32)
    + dosing_step("Wasser", 850, 2.5, 1, duration(seconds=1, milliseconds=200))
    + dosing_step("Zucker", 96.75, 0.5, 2, duration(seconds=2))
    + dosing_step("Zitronensäure", 1.5, 0.01, 3, 0)
    + dosing_step("Aroma", 0.35, 0.005, 4, duration(milliseconds=250))
    + pack("II", duration(hours=1, minutes=30), seconds(2023, 7, 1)),
    # area 70
    "charge": pack("IHIIIdII", 4_000_000_123, 17, LAEUFT, seconds(2024, 9, 15, 6, 30), 0,
                   ole(2024, 9, 15, 7, 5, 30, 250), seconds(2024, 9, 13),
                   duration(hours=26, minutes=5)),
    # area 80, 3 values
    "schichten": shift(clock(6), clock(14), JA, JA, JA, JA, JA, NEIN, NEIN)
    + shift(clock(14), clock(22), JA, JA, JA, JA, NEIN, NEIN, NEIN)
    + shift(clock(22), clock(5, 59) + 59, NEIN, NEIN, NEIN, NEIN, NEIN, JA, JA),
    # area 90, 2 values; the second one has a time without a date and a tab in its text
    "meldungen": alarm(ole(2024, 9, 15, 6, 31, 5, 125), 20, "Ventil V4 gestört")
    + alarm(0.75, 40, "Füllstand\thoch"),
    # area 101, 5 values
    "trend": pack("5h", -1, 0, 300, -32768, 32767),
}


def check():
    for name, data in VALUES.items():
        if (FOLDER / f"{name}.bin").read_bytes() != data:
            sys.exit(f"{name}.bin is out of date; run {pathlib.Path(__file__).name}")


def write():
    for name, data in VALUES.items():
        (FOLDER / f"{name}.bin").write_bytes(data)
        print(f"{name}.bin: {len(data)} bytes")


if __name__ == "__main__":
    check() if sys.argv[1:] == ["--check"] else write()
