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


def sort_keys():
    # Byte 0 picks the column (0 Code, 1 Name, 2 Time, 3 Now, 4 RedVolume,
    # 5 ChangeRate), byte 1 the order, then one cell text per line.
    files = {
        "units": b"\x03\x00" + "abc\n12.5%\n9.90万\n1.20亿\n-1.50万\n12万\n0.5\n\n1e308\n-3\nnan\ninf".encode(),
        "codes": b"\x00\x01" + "600000\n000600\n160060\n\nSZ002\n深发展".encode(),
        "times": b"\x02\x00" + "09:30:00\n9:30\n15:00:00.500\n24:00:00\n\n11:29:59".encode(),
        "volumes": b"\x04\x00" + "1.5万\n2.0亿\n3\n%\n5%%\n1.2.3万\n99999999999999999999.0亿\n-99999999999.0万".encode(),
        "rates": b"\x05\x01" + "+1.25%\n-0.50%\n0.00%\n--\n1.0万%\n12.5%abc".encode(),
    }
    for name, data in files.items():
        write("fuzz_sortkey", name, data)


def keyboard_search():
    # First line the query, then one record per line, texts split by tabs;
    # "-" is a null pointer.
    def rec(kind, code, name, key):
        return "\t".join([kind, code, name, key])
    base = [rec("沪A", "600000", "浦发银行", "PFYH"), rec("深A", "000600", "建投能源", "JTNY"),
            rec("沪A", "160060", "某基金", "MJJ"), rec("指数", "000001", "上证指数", "SZZS"),
            rec("命令", "60", "600", "LX"), "-", "short\trecord", "",
            rec("港股", "00700", "腾讯控股", "TXKG"), rec("美股", "AAPL", "Apple", "aapl")]
    files = {
        "ranking": "600\n" + "\n".join(base),
        "name-first": "浦发银行\n" + "\n".join(base),
        "case": "aApL\n" + "\n".join(base),
        "empty-query": "\n" + "\n".join(base),
        "many": "6\n" + "\n".join(rec("A", "6%05d" % i, "n%d" % i, "k") for i in range(300)),
        "exact-cap": "x\n" + "\n".join(rec("A", "x", "x", "x") for _ in range(250)),
        "unicode": "ǅ\n" + "\n".join([rec("A", "ǆ1", "ß", "ΣΑΣ"), rec("A", "Ǆ2", "SS", "σας"),
                                         rec("A", "İ", "ı", "K")]),
    }
    for name, data in files.items():
        write("fuzz_keyboardsearch", name, data)


def main():
    for t in ("fuzz_columnfile", "fuzz_blockmap", "fuzz_sortkey", "fuzz_keyboardsearch"):
        shutil.rmtree(os.path.join(CORPUS, t), ignore_errors=True)
    user = column_files()
    block_files(user)
    sort_keys()
    keyboard_search()


if __name__ == "__main__":
    main()
