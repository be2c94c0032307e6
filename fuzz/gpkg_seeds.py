"""The first inputs of the fuzz driver "gpkg": a byte that chooses what the others are, and these."""

import contextlib
import pathlib
import sqlite3
import struct
import tempfile

HEAD = b"GP\0\1\xff\xff\xff\xff"
NUMBERS = struct.pack("<6d", 1, 2, 3, 4, 5, 6)
LINE = HEAD + struct.pack("<BII", 1, 1002, 2) + NUMBERS
BLOBS = [
    LINE,
    HEAD + b"\1\1\0\0\0" + NUMBERS[:16],
    b"GP\0\3" + HEAD[4:] + NUMBERS[:32] + b"\1\2\0\0\0\2\0\0\0" + NUMBERS[:32],
    HEAD + struct.pack("<BIIII", 1, 6, 1, 1, 3) + struct.pack("<I", 1) + NUMBERS[:16],
    HEAD + struct.pack(">BIIBII", 0, 5, 1, 0, 2, 1) + NUMBERS[:16],
]
TABLES = (
    ("gpkg_contents", "table_name, data_type"),
    ("gpkg_geometry_columns", "table_name, column_name, geometry_type_name, srs_id, z, m"),
    ("gpkg_spatial_ref_sys", "srs_id, definition"),
    ("roads", "fid INTEGER PRIMARY KEY, geom, name, model, type, z, chainage"),
)


def small_package(*statements):
    """A package of pages as small as can be."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "a.gpkg"
        with contextlib.closing(sqlite3.connect(path)) as database:
            database.execute("PRAGMA page_size=512")
            for table, columns in TABLES:
                database.execute(f"CREATE TABLE {table} ({columns})")
            database.execute("INSERT INTO gpkg_contents VALUES ('roads', 'features')")
            database.execute(
                "INSERT INTO gpkg_geometry_columns VALUES ('roads', 'geom', 'GEOMETRY', 1, 2, 0)")
            for sql, *values in statements:
                database.execute(sql, values)
            database.commit()
        return path.read_bytes()


def inputs(archives):
    for blob in BLOBS:
        yield b"\0" + blob
        yield b"\2" + b"\0".join((b"roads", b"name", b"type", b"", b"", b"N", b"3d", b"M", b"12.5",
                                  blob + b"O", b"2d", b"", b"", LINE))
        row = ("INSERT INTO roads (geom, name, model, type, z) VALUES (?, 'a', 'b', '2d', 1.5)", blob)
        yield b"\1" + small_package(row, row)
    yield b"\2" + b"\0".join((b'r"', b"style", b"colour", b"z > 1", b"z", b'N "q"//', b"red", b"M",
                              b"2", LINE + b"a", b"b", b"c", b"3", LINE))
    yield b"\1" + small_package(
        ("INSERT INTO gpkg_spatial_ref_sys VALUES (1, 'GEOGCS[\"x\"]')",),
        ("CREATE TABLE layer_styles (id)",))
    for archive in archives:
        for mode in 3, 15:
            yield bytes([mode]) + archive.read_bytes()
