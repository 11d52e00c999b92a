#!/usr/bin/env python3
"""Writes the seed corpus of the fuzz targets under fuzz/corpus/<target>/:
real column files (the gallery's template, a user file, a multi-block file)
and the broken ones a real client meets (empty, truncated, binary, wrong
types, deep nesting, odd alignments, odd colours). Run again after changing
it; the output is deterministic."""
import json
import os
import shutil

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
CORPUS = os.path.join(ROOT, "fuzz", "corpus")


def write(target, name, data):
    d = os.path.join(CORPUS, target)
    os.makedirs(d, exist_ok=True)
    if isinstance(data, str):
        data = data.encode("utf-8")
    with open(os.path.join(d, name), "wb") as f:
        f.write(data)


def column(text, feild, align="AlignCenter", change=False, show=True, default="--"):
    return {"text": text, "feild": feild, "isShow": show, "isChangeColor": change,
            "alignment": align, "defaultValue": default}


def table(columns, **colors):
    t = {"defaultColor": "#333333", "riseColor": "#e53935", "fallColor": "#1e9e50",
         "suspensionColor": "#8a8a8a", "defaultBgColor": "#ffffff",
         "riseBgColor": "#ffd9d6", "fallBgColor": "#d3f2de"}
    t.update(colors)
    t["horizontalHeader"] = columns
    return t


def dump(obj):
    return json.dumps(obj, ensure_ascii=False, indent=4)


def column_files():
    with open(os.path.join(ROOT, "gallery", "config", "hsstocktemplatetable.json"), "rb") as f:
        template = f.read()
    user = table([column("序号", ""), column("代码", "Code"), column("名称", "Name"),
                  column("最新", "Now", "AlignRight|AlignVCenter", True),
                  column("外盘", "RedVolume", "AlignRight", True),
                  column("内盘", "GreenVolume", "AlignRight | AlignVCenter", True),
                  column("5分钟涨速", "DifferRange5Min", "Bogus|AlignLeft", True, False)])
    files = {
        "template.json": template,
        "user.json": dump(user),
        "volume-first.json": dump(table([column("内盘", "GreenVolume"), column("代码", "Code")])),
        "empty": b"",
        "empty-object.json": b"{}",
        "empty-header.json": dump(table([])),
        "truncated.json": template[: len(template) // 2],
        "binary.bin": bytes(range(256)) * 2,
        "bom.json": b"\xef\xbb\xbf" + dump(user).encode("utf-8"),
        "top-array.json": b"[1, 2, {\"horizontalHeader\": []}]",
        "top-string.json": b"\"horizontalHeader\"",
        "wrong-types.json": dump({"defaultColor": 12, "riseColor": [], "fallColor": None,
                                  "suspensionColor": {}, "defaultBgColor": True,
                                  "horizontalHeader": [1, "x", None, [], {"text": 5, "feild": [],
                                                       "isShow": "true", "isChangeColor": 1,
                                                       "alignment": 132, "defaultValue": {}}]}),
        "header-not-array.json": dump({"horizontalHeader": {"text": "a"}}),
        "colors.json": dump(table([column("a", "Now")], defaultColor="red", riseColor="#abc",
                                  fallColor="#12345", suspensionColor="transparent",
                                  defaultBgColor="#ffffffff", riseBgColor="", fallBgColor="#GGGGGG")),
        "alignments.json": dump(table([column("a", "A", a) for a in
                                       ["", "|", "||AlignLeft", "AlignHCenter|AlignBottom", " AlignTop ",
                                        "AlignAbsolute|AlignJustify|AlignBaseline", "alignleft",
                                        "AlignHorizontal_Mask", "AlignCenter|AlignCenter|Nope"]])),
        "deep.json": b"[" * 600 + b"]" * 600,
        "deep-object.json": b"{\"horizontalHeader\":" + b"[" * 300 + b"{}" + b"]" * 300 + b"}",
        "escapes.json": b"{\"horizontalHeader\":[{\"text\":\"\\ud800\\u0000\\n\",\"feild\":\"Now\\t\"}]}",
        "numbers.json": b"{\"horizontalHeader\":[{\"text\":1e999,\"isShow\":-0,\"alignment\":1.5e308}]}",
    }
    for name, data in files.items():
        write("fuzz_columnfile", name, data)
    return user


def block_files(user):
    blocks = {"blockData": [
        {"rootBlockId": "1001", "TableHHeaderData": user},
        {"rootBlockId": "1002", "TableHHeaderData": table([column("代码", "Code")])},
    ]}
    files = {
        "blocks.json": dump(blocks),
        "duplicate-ids.json": dump({"blockData": [
            {"rootBlockId": "a", "TableHHeaderData": table([column("x", "X")])},
            {"rootBlockId": "a", "TableHHeaderData": table([column("y", "Y"), column("z", "Z")])}]}),
        "wrong-types.json": dump({"blockData": [1, "a", None, {"rootBlockId": 7, "TableHHeaderData": []},
                                                {"TableHHeaderData": "x"}, {}]}),
        "blockdata-object.json": dump({"blockData": {"rootBlockId": "a"}}),
        "empty": b"",
        "empty-object.json": b"{}",
        "truncated.json": dump(blocks).encode("utf-8")[:700],
        "binary.bin": bytes(reversed(range(256))) * 2,
        "deep.json": b"{\"blockData\":" + b"[" * 400 + b"]" * 400 + b"}",
        "single-table.json": dump(user),
    }
    for name, data in files.items():
        write("fuzz_blockmap", name, data)


def main():
    for t in ("fuzz_columnfile", "fuzz_blockmap"):
        shutil.rmtree(os.path.join(CORPUS, t), ignore_errors=True)
    user = column_files()
    block_files(user)


if __name__ == "__main__":
    main()
