# explain: what became of each value of a message.
bats_require_minimum_version 1.5.0

CAR=tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO

# The row of a path: its columns with single blanks between them.
row() { grep -E "^$1 " <<<"$output" | sed -E 's/ +/ /g'; }

explain_car() { run "$JSONPARSER" explain $CAR; }

@test "README.md shows the real output" {
    command='scripts/run explain HDDSMART --at /Attribute examples/messages/disk_health_mistyped.json'
    shown=$(awk -v command="\$ $command" '$0 == command { on = 1; next } on && /^```/ { exit } on' "$MESSAGES/../../README.md")
    [ -n "$shown" ]
    run "$JSONPARSER" explain HDDSMART --at /Attribute "$MESSAGES/disk_health_mistyped.json"
    [ "$status" -eq 1 ]
    diff -u <(echo "$shown") <(echo "$output")
}

@test "a value that is kept" {
    explain_car <<<'{"Speed": 87, "PlateNumber": "京A"}'
    [ "$status" -eq 0 ]
    [ "$(row /Speed)" = "/Speed integer 87 int 87 kept" ]
    [ "$(row /PlateNumber)" = '/PlateNumber text "京A" present text from UTF-8, limit 32 "京A" kept' ]
}

@test "a missing member that is read as a default" {
    explain_car <<<'{}'
    [ "$status" -eq 0 ]
    [ "$(row /Speed)" = "/Speed missing int 0 written by default" ]
}

@test "a null member that a test refuses is left" {
    explain_car <<<'{"PlateNumber": null}'
    [ "$status" -eq 0 ]
    [ "$(row /PlateNumber)" = "/PlateNumber null null not present left as it was" ]
}

@test "a text that is cut" {
    explain_car <<<'{"PlateType": "0123456789012345678901234567890123456789"}'
    [ "$status" -eq 1 ]
    [[ "$(row /PlateType)" == *" cut from 40 to 31 bytes" ]]
}

@test "a text that fills its field" {
    explain_car <<<'{"ChannelName": "0123456789abcdef0123456789abcdef"}'
    [ "$status" -eq 1 ]
    [[ "$(row /ChannelName)" == *" fills all 32 bytes, its terminator is in the byte behind the field" ]]
}

@test "characters that the local encoding lacks" {
    LOCPATH=$LOCALES LC_ALL=zh_CN.GBK run "$JSONPARSER" explain $CAR <<<'{"PlateNumber": "京A😀"}'
    [ "$status" -eq 1 ]
    [[ "$(row /PlateNumber)" == *'"京A?" 1 character replaced by "?"' ]]
}

@test "low bits of a number" {
    explain_car <<<'{"ActualGain": 300}'
    [ "$status" -eq 1 ]
    [ "$(row /ActualGain)" = "/ActualGain integer 300 present int, low 8 bits 44 wrapped to the low 8 bits" ]
}

@test "a number beyond the range" {
    explain_car <<<'{"Speed": 1e300}'
    [ "$status" -eq 1 ]
    [ "$(row /Speed)" = "/Speed real 1e+300 int 2147483647 beyond the range, the nearest limit taken" ]
}

@test "a fraction" {
    explain_car <<<'{"Speed": 61.9}'
    [ "$status" -eq 1 ]
    [ "$(row /Speed)" = "/Speed real 61.9 int 61 fraction cut" ]
}

@test "an unknown keyword, with the nearest one" {
    explain_car <<<'{"VehicleSize": "medum"}'
    [ "$status" -eq 1 ]
    [ "$(row /VehicleSize)" = \
        '/VehicleSize text "medum" present keyword, exact -1 keyword unknown; did you mean "Medium"?' ]
}

@test "a keyword that is near to none has no proposal" {
    explain_car <<<'{"VehicleSize": "zeppelin"}'
    [[ "$(row /VehicleSize)" == *" keyword unknown" ]]
}

@test "words whose functions take no node" {
    while read -r record word code conversion; do
        run "$JSONPARSER" explain "$record" <<<"$word"
        [ "$status" -eq 0 ]
        [ "$(row /)" = "/ text $word isString keyword, $conversion $code kept" ]
        run "$JSONPARSER" decode "$record" --strict <<<"$word"
        [ "$status" -eq 0 ]
    done <<'END'
SeatBelt/exact "WithSafeBelt" 1 exact
ObjectAction "appear" 1 ignoring case
StorageError "RaidFailed" 5 exact
RaidError "RaidFailed" 1 exact
Resolution "d1" 0 ignoring case
END
    run "$JSONPARSER" explain SeatBelt/exact <<<'"withSafeBelt"'
    [ "$status" -eq 1 ]
    [ "$(row /)" = '/ text "withSafeBelt" isString keyword, exact 0 keyword unknown; did you mean "WithSafeBelt"?' ]
    run "$JSONPARSER" explain Resolution <<<'704'
    [ "$status" -eq 1 ]
    [ "$(row /)" = "/ integer 704 not isString refused by isString, left as it was" ]
}

@test "the library's code of a reply: known, unknown, not usable, missing" {
    code() { run "$JSONPARSER" explain ErrorCode <<<"{\"error\": {\"code\": $1}}"; }
    code 268632080
    [ "$status" -eq 0 ]
    [ "$(row /error/code)" = "/error/code integer 268632080 error code 2147483727 kept" ]
    code 268959743
    [ "$status" -eq 1 ]
    [ "$(row /error/code)" = "/error/code integer 268959743 error code 2147483669 not in the table" ]
    code '"x"'
    [ "$status" -eq 1 ]
    [ "$(row /error/code)" = '/error/code text "x" error code 2147483669 wrong type, read as no usable code' ]
    code null
    [ "$status" -eq 0 ]
    [ "$(row /error/code)" = "/error/code null null error code 2147483669 written by default" ]
    run --separate-stderr "$JSONPARSER" decode ErrorCode --strict <<<'{"error": {"code": 268959743}}'
    [ "$status" -eq 1 ]
    [ "${lines[1]}" = "  nCode  2147483669" ]
    [[ "${stderr_lines[0]}" == \
        *": /error/code: found 268959743, expected a known device error code (not in the table)" ]]
}

@test "the wrong type" {
    explain_car <<<'{"Speed": "87", "StereoGarage": 5, "Redundance": "x", "PlateColor": {}}'
    [ "$status" -eq 1 ]
    [ "$(row /Speed)" = '/Speed text "87" int 0 wrong type, read as 0' ]
    [ "$(row /StereoGarage)" = "/StereoGarage integer 5 present members wrong type, read as no members" ]
    [[ "$(row /Redundance)" == *" wrong type, read as no elements" ]]
    [[ "$(row /PlateColor)" == *" wrong type, read as the empty text" ]]
    [ "${lines[-1]}" = "$CAR: 47 values looked for, 4 findings" ]
}

@test "what is no array, or an empty one, where elements are read" {
    for record in tagCFG_TIME_SECTION tagNET_TIME_SECTION; do
        for message in null '[]'; do
            run "$JSONPARSER" explain $record <<<"$message"
            [ "$status" -eq 0 ]
            [[ "$output" != *"nothing reads this"* ]]
        done
        for message in '{}' '"1 08:00:00-12:00:00"' 5; do
            run "$JSONPARSER" explain $record <<<"$message"
            [ "$status" -eq 1 ]
            [[ "$(row /)" == *" size 0 "*"wrong type, read as no elements" ]]
            [[ "$output" == *" looked for, 1 finding"* ]]
        done
    done
}

@test "a value that a test refuses" {
    explain_car <<<'{"Weight": "heavy", "VehicleColorRGB": [1]}'
    [ "$status" -eq 1 ]
    [ "$(row /Weight)" = '/Weight text "heavy" not isInt refused by isInt, left as it was' ]
    [ "$(row /VehicleColorRGB)" = \
        "/VehicleColorRGB array array of 1 isArray, size 1 refused for its size, left as it was" ]
}

@test "a text that is scanned in part" {
    run "$JSONPARSER" explain tagNET_TIME <<<'"2024-01-05 09:3x"'
    [ "$status" -eq 1 ]
    [[ "$output" == *" 5 of 6 numbers converted"* ]]
    [[ "${lines[-1]}" == *", not a whole record" ]]
}

@test "members that nothing reads, with the nearest name in the right place" {
    explain_car <<<'{"PlateNumer": "A", "StereoGarage": {"DekNo": 1}, "FreeDeckCount": 4, "Other": 1}'
    [ "$status" -eq 1 ]
    [[ "$output" == *$'\n/PlateNumer: nothing reads this; did you mean PlateNumber?\n'* ]]
    [[ "$output" == *$'\n/StereoGarage/DekNo: nothing reads this; did you mean DeckNo?\n'* ]]
    [[ "$output" == *$'\n/FreeDeckCount: nothing reads this; did you mean /StereoGarage/FreeDeckCount?\n'* ]]
    [[ "$output" == *$'\n/Other: nothing reads this\n'* ]]
}

@test "members that nothing reads come in the order of the document" {
    explain_car <<<'{"Zz": 1, "Mm": 2, "Aa": 3}'
    [ "$(grep -o '^/.*nothing' <<<"$output")" = $'/Zz: nothing\n/Mm: nothing\n/Aa: nothing' ]
}

@test "elements beyond the capacity in one line" {
    explain_car <<<"{\"Redundance\": [$(seq -s, 1 200)]}"
    [ "$status" -eq 1 ]
    [[ "$output" == *$'\n/Redundance/8: elements 8 to 199: nothing reads these\n'* ]]
}

@test "a word that is kept as a text in another field is no finding" {
    run "$JSONPARSER" explain tagNET_NETAPP_WIRELESS <<<'{"APN": "fleet.m2m"}'
    [ "$status" -eq 0 ]
    [[ "$output" == *"no keyword, kept as a text"* ]]
}

@test "values come in the converter's order" {
    explain_car <<<'{"Speed": 1, "Lane": 2}'
    [[ "${lines[0]}" == path*type*message*test*conversion*record*"what became of it" ]]
    [[ "${lines[1]}" == /PlateNumber* ]]
    [[ "${lines[5]}" == /Speed* ]]
}

@test "columns are aligned, wide characters counted as two" {
    explain_car <<<'{"PlateNumber": "京A·D12345", "PlateType": "x", "MachineName": "城区一组城区一组城区一组城区一组"}'
    python3 - "$output" <<'END'
import sys, unicodedata
def columns(text): return sum(2 if unicodedata.east_asian_width(c) in "WF" else 1 for c in text)
lines = sys.argv[1].split("\n")
begin = lines[0].index("what became of it")
rows = [line for line in lines[1:] if line.startswith("/")]
assert len(rows) > 40
for row in rows:
    for end in ("kept", "left as it was", "written by default"):
        if row.endswith(end): assert columns(row[:-len(end)]) == begin, row
END
}

@test "long texts are shortened in the table" {
    explain_car <<<"{\"MachineName\": \"$(printf 'x%.0s' {1..200})\"}"
    [ "$status" -eq 0 ]
    [[ "$(row /MachineName)" == *'xxx... '*'xxx... kept' ]]
}

@test "--at explains a record inside a message, paths counted from it" {
    run "$JSONPARSER" explain $CAR --at /a/0 <<<'{"a": [{"Speed": 5}]}'
    [ "$status" -eq 0 ]
    [ "$(row /Speed)" = "/Speed integer 5 int 5 kept" ]
}

@test "--at a place that the message has not is a finding" {
    run "$JSONPARSER" explain $CAR --at /b <<<'{"a": 1}'
    [ "$status" -eq 1 ]
    [[ "$output" == *"/b"* ]]
}

@test "a root of the wrong type has a row of its own" {
    run "$JSONPARSER" explain $CAR <<<'7'
    [ "$status" -eq 1 ]
    [ "$(row /)" = "/ integer 7 members wrong type, read as no members" ]
}

@test "--json is one object with all readings and their places" {
    run "$JSONPARSER" explain $CAR --json --at /a <<<$'{"a": {"Speed": "x",\n  "Sped": 1}}'
    [ "$status" -eq 1 ]
    python3 - "$output" <<'END'
import json, sys
account = json.loads(sys.argv[1])
assert account["record"] == "tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO"
assert account["whole"] is True and account["findings"] == 2
by_path = {reading["path"]: reading for reading in account["readings"]}
assert by_path["/a/Speed"] == {"path": "/a/Speed", "type": "text", "found": '"x"', "test": "", "conversion": "int",
    "value": "0", "outcome": "wrong type", "finding": True, "remark": "wrong type, read as 0", "expected": "a number",
    "line": 1, "column": 17}, by_path["/a/Speed"]
assert by_path["/a/Sped"]["outcome"] == "unread" and by_path["/a/Sped"]["line"] == 2
assert by_path["/a/Sped"]["column"] == 3
assert by_path["/a/Lane"]["type"] == "missing" and by_path["/a/Lane"]["finding"] is False
assert "line" not in by_path["/a/Lane"]
END
}

@test "--json is valid whatever the message holds" {
    printf '{"a\\u0001\\"b": "x", "PlateNumber": "\\u0000\\u001b", "DeviceAddress": "\\\\\\""}' >"$BATS_TEST_TMPDIR/odd.json"
    run "$JSONPARSER" explain $CAR --json "$BATS_TEST_TMPDIR/odd.json"
    [ "$status" -eq 1 ]
    python3 -c 'import json, sys; json.loads(sys.argv[1])' "$output"
}

@test "text output obeys no escape sequence of the message" {
    explain_car <<<'{"a\u001b[31m": "\u001b[31m", "PlateNumber": "\u001b[31m"}'
    [[ "$output" != *$'\e'* ]]
}

@test "a terminal gets colour, a pipe does not" {
    explain_car <<<'{"Speed": "x"}'
    [[ "$output" != *$'\e'* ]]
    run "$JSONPARSER" --color always explain $CAR <<<'{"Speed": "x", "Lane": 1}'
    [[ "$output" == *$'\e[33mwrong type, read as 0\e[0m'* ]]
    [[ "$output" == *$'\e[32mkept\e[0m'* ]]
    [[ "$output" == *$'\e[1mpath'* ]]
}

@test "colour does not move the columns" {
    explain_car <<<'{"Speed": "x", "PlateNumber": "京"}'
    plain=$output
    run "$JSONPARSER" --color always explain $CAR <<<'{"Speed": "x", "PlateNumber": "京"}'
    [ "$(sed 's/\x1b\[[0-9;]*m//g' <<<"$output")" = "$plain" ]
}

@test "a record that is not whole ends with 1" {
    run "$JSONPARSER" explain VK_RECT <<<'[]'
    [ "$status" -eq 1 ]
    [[ "${lines[-1]}" == *"not a whole record" ]]
}

@test "a record that is only written is a usage error" {
    run "$JSONPARSER" explain _VKDEVTIME <<<'""'
    [ "$status" -eq 2 ]
    [[ "$output" == "jsonparser: _VKDEVTIME is only written, there is nothing to explain" ]]
}

@test "an unknown record is a usage error, an unreadable file cannot be read" {
    run "$JSONPARSER" explain NoSuchRecord
    [ "$status" -eq 2 ]
    run "$JSONPARSER" explain $CAR /no/such/file
    [ "$status" -eq 3 ]
}

@test "a document that is no JSON is a finding" {
    run "$JSONPARSER" explain $CAR <<<'{'
    [ "$status" -eq 1 ]
    [[ "$output" == "jsonparser: <stdin>:"* ]]
}

@test "--lenient reads what the client's own reader takes" {
    run "$JSONPARSER" explain $CAR --lenient <<<'{"Speed": 5} // seen'
    [ "$status" -eq 0 ]
}

# What is wrong with each sample message, and nothing else: outcomes of its record, sorted.
@test "every sample message explains without finding but for these" {
    actual=$(python3 - <<'END'
import collections, json, os, subprocess
folder = os.environ["MESSAGES"]
for row in open(folder + "/index.txt"):
    if row.startswith("#"): continue
    file, record, place = row.split()
    account = subprocess.run([os.environ["JSONPARSER"], "explain", "--json", record, "--at", place, f"{folder}/{file}"],
                             stdout=subprocess.PIPE).stdout
    outcomes = collections.Counter(r["outcome"] for r in json.loads(account)["readings"] if r["finding"])
    if outcomes: print(file, record, place, *(f"{outcome}={count}" for outcome, count in sorted(outcomes.items())))
END
)
    diff -u - <(echo "$actual") <<'END'
traffic_event.json tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO /params/Events/0/TrafficCar unread=1
traffic_violation.json tagDEV_EVENT_TRAFFIC_TRAFFICCAR_INFO /params/Events/0/TrafficCar cut=1 fraction=2 full=1 limited=1 refused=5 unknown keyword=1 unread=2 wrapped=5 wrong type=6
disk_health_mistyped.json tagNET_HDDSMART_INFO /Attribute cut=1 fraction=1 unread=1 wrapped=1 wrong type=1
mobile_data.json tagNET_NETAPP_WIRELESS /params/config/MobileData/0 unread=1
talking_invite.json tagALARM_TALKING_INVITE_INFO /params/Events/0/Data unread=1
object_event.json VK_MSG_OBJECT /params/Events/0/Object unread=5
object_event.json tagVK_MSG_OBJECT_EX /params/Events/0/Object unread=6
object_event.json tagVK_MSG_OBJECT_EX2 /params/Events/0/Object unread=5
person_query.json tagFACERECOGNITION_PERSON_INFO /params/Persons/0 unread=10
person_query.json tagFACERECOGNITION_PERSON_INFOEX /params/Persons/0 unread=1
face_recognition.json tagCANDIDATE_INFO /params/Events/0/Candidates/0 cut=1
face_recognition.json tagCANDIDATE_INFOEX /params/Events/0/Candidates/0 cut=1
face_recognition.json tagCANDIDATE_INFOEX /params/Events/0/Candidates/1 not converted=1 refused=1 unknown keyword=1 unread=1
face_recognition.json VK_PIC_INFO_EX3 /params/Events/0/Candidates/0/SceneImage cut=1
face_recognition.json tagNET_EXTENSION_INFO /params/Events/0 unread=6
human_trait.json tagNET_HUMANTRAIT_EXTENSION_INFO /params/Events/0 unread=3
schedule.json tagCFG_TIME_SECTION /params/config/Recording/0/TimeSection/1 unread=1
schedule.json tagNET_TIME_SECTION /params/config/Recording/0/TimeSection/1 unread=1
END
}

@test "where nothing of the record is found, a place that has most of its members is proposed" {
    run "$JSONPARSER" explain trafficcar "$MESSAGES/traffic_event.json"
    [ "$status" -eq 1 ]
    [ "${lines[-1]}" = "Nothing of it is here; try --at /params/Events/0/TrafficCar" ]
    run "$JSONPARSER" explain trafficcar <<<'{"Lane": {}, "x y": [1, {"Speed": 1}, {"Speed": 1, "Direction": 2}]}'
    [[ "$output" != *"--at"* ]]
    run "$JSONPARSER" explain trafficcar <<<"{\"x 'y\": [1, {\"Speed\": 1}, {\"Speed\": 1, \"Direction\": 2}]}"
    [ "${lines[-1]}" = "Nothing of it is here; try --at '/x '\\''y/2'" ]
    run "$JSONPARSER" explain VK_RECT <<<'{"Rect": [1, 2, 3, 4]}'
    [ "${lines[-1]}" = "Nothing of it is here; --at names the record's place" ]
}

@test "no place is proposed where something was found, or a place was given" {
    run "$JSONPARSER" explain trafficcar <<<'{"Speed": 1}'
    [[ "$output" != *"--at"* ]]
    run "$JSONPARSER" explain trafficcar --at /a <<<'{"a": {"b": {"Speed": 1}}}'
    [[ "$output" != *"--at"* ]]
    run "$JSONPARSER" explain trafficcar --json <<<'{"a": {"b": {"Speed": 1}}}'
    [[ "$output" != *"--at"* ]]
}

@test "twice the members that nothing reads take twice the time, with places too" {
    python3 - <<'END'
import os, resource, subprocess
def seconds(count, *command):
    message = "{" + ",".join('"m%d":%d' % (i, i) for i in range(count)) + "}"
    begin = resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime
    tool = subprocess.run([os.environ["JSONPARSER"], *command], input=message.encode(), stdout=subprocess.DEVNULL,
                          stderr=subprocess.DEVNULL)
    assert tool.returncode == 1, command
    return resource.getrusage(resource.RUSAGE_CHILDREN).ru_utime - begin
sanitizer = any(name in open(os.environ["JSONPARSER"], "rb").read() for name in (b"__asan_init", b"__tsan_init"))
count = 2000 if sanitizer else 20000
for command in (("explain", "trafficcar", "--json"), ("explain", "trafficcar"), ("decode", "trafficcar", "--strict")):
    once, twice = seconds(count, *command), seconds(2 * count, *command)
    assert twice < 3 * once, (command, once, twice)
END
}
