# decode --lines and encode --lines: one message a line.
bats_require_minimum_version 1.5.0

points() { seq "$1" | awk '{ print "[" $1 % 30000 ", " NR % 7 "]" }'; }

# Standard input is the arguments as printf makes them.
decode_points() { printf "$1" | "$JSONPARSER" decode VK_POINT --lines "${@:2}"; }

@test "every line becomes a line" {
    run --separate-stderr decode_points '[1, 2]\n[3, 4]\n'
    [ "$status" -eq 0 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":3,"ny":4}' ]
    [ -z "$stderr" ]
}

@test "a line of output is the record of --json without blanks" {
    python3 - <<'END'
import json, os, re, subprocess

def decoded(*arguments):
    return subprocess.run([os.environ["JSONPARSER"], "decode", *arguments], stdout=subprocess.PIPE, check=True).stdout.decode()

folder, line = os.environ["MESSAGES"], os.environ["BATS_TEST_TMPDIR"] + "/line"
for row in open(folder + "/index.txt"):
    if row.startswith("#"):
        continue
    file, record, at = row.split()
    file = folder + "/" + file
    with open(line, "w") as one_line:
        print(json.dumps(json.load(open(file)), ensure_ascii=False), file=one_line)
    without_blanks = re.sub(r'("(?:[^"\\]|\\.)*")|\s+', r"\1", decoded(record, "--at", at, "--json", file))
    found = decoded(record, "--at", at, "--lines", line)
    assert found == without_blanks + "\n", f"{row}{found}differs from\n{without_blanks}"
END
}

@test "findings of --lines are those of decode, sound and broken messages alike" {
    while read -r record line; do
        printf '%b' "$line" >"$BATS_TEST_TMPDIR/line"
        for option in "" --strict --lenient; do
            plain=0 lines=0
            "$JSONPARSER" decode "$record" --json $option "$BATS_TEST_TMPDIR/line" >/dev/null \
                2>"$BATS_TEST_TMPDIR/plain" || plain=$?
            "$JSONPARSER" decode "$record" --lines $option "$BATS_TEST_TMPDIR/line" >/dev/null \
                2>"$BATS_TEST_TMPDIR/lines" || lines=$?
            [ "$plain" -eq "$lines" ]
            cmp "$BATS_TEST_TMPDIR/plain" <(grep -v '^jsonparser: 1 of 1 lines are bad$' "$BATS_TEST_TMPDIR/lines")
        done
    done <<'END'
VK_POINT [1, 2]
VK_POINT [1, 70000]
VK_POINT [1, 2, 3]
VK_POINT [1, 2
VK_POINT [1, 2] 3
VK_POINT [1, 2,] // end
VK_POINT [1, 02]
VK_POINT [1, 1e999]
VK_POINT \xEF\xBB\xBF[1, 2]
VK_POINT \xEF\xBB\xBF[1, x]
trafficcar {"PlateNumber": "\xFF", "Speed": 87}
trafficcar {"PlateNumbr": "A", "Speed": "87", "Speed": 1.5}
trafficcar {"PlateNumber": "A", "Speed": 87
PlateColor "Bleu"
SeatBelt/exact "WithSafeBelt"
SeatBelt/exact 5
END
}

@test "blank lines are passed over, and counted as lines of the file" {
    run --separate-stderr decode_points '\n[1, 2]\n  \t\n\r\n[3, 4, x]\n\n'
    [ "$status" -eq 1 ]
    [ "$output" = '{"nx":1,"ny":2}' ]
    [[ "${stderr_lines[0]}" == "jsonparser: <stdin>:5:"* ]]
    [ "${stderr_lines[-1]}" = "jsonparser: 1 of 2 lines are bad" ]
}

@test "lines may end in CR LF" {
    run --separate-stderr decode_points '[1, 2]\r\n[3, 4]\r\n'
    [ "$status" -eq 0 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":3,"ny":4}' ]
}

@test "the last line needs no end" {
    run --separate-stderr decode_points '[1, 2]\n[3, 4]'
    [ "$status" -eq 0 ]
    [ "${lines[1]}" = '{"nx":3,"ny":4}' ]
}

@test "empty input is good and gives nothing" {
    for text in '' '\n' '\n\n \n'; do
        run decode_points "$text"
        [ "$status" -eq 0 ]
        [ -z "$output" ]
    done
}

@test "the run goes on behind bad lines; each is named, and they are counted" {
    run --separate-stderr decode_points '[1, 2]\n{"a": 1}\n[1, 2, 3]\n[1, 2\nnull\n[3, 4]\n'
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":3,"ny":4}' ]
    [[ "$stderr" == *"jsonparser: <stdin>:2:1: /: found an object, expected a whole VK_POINT"* ]]
    [[ "$stderr" == *"jsonparser: <stdin>:3:1: /: found an array of 3, expected a whole VK_POINT"* ]]
    [[ "$stderr" == *"jsonparser: <stdin>:4:"* ]]
    [[ "$stderr" == *"jsonparser: <stdin>:5:1: /: found null, expected a whole VK_POINT"* ]]
    [ "${stderr_lines[-1]}" = "jsonparser: 4 of 6 lines are bad" ]
}

@test "--at is looked up in every line" {
    run --separate-stderr decode_points '{"p": [1, 2]}\n{"q": [3, 4]}\n{"p": [5, 6]}\n' --at /p
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":5,"ny":6}' ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:2:1: /p: found an object without it, expected a value" ]
}

@test "a NUL in a line makes that line bad" {
    run --separate-stderr decode_points '[1, 2]\n[3, \0 4]\n[5, 6]\0\n[7, 8]\n'
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":7,"ny":8}' ]
    [[ "${stderr_lines[0]}" == "jsonparser: <stdin>:2:"* ]]
    [[ "$stderr" == *"jsonparser: <stdin>:3:"* ]]
    [ "${stderr_lines[-1]}" = "jsonparser: 2 of 4 lines are bad" ]
}

@test "a line of as many bytes as --max-size says is taken, a longer one is bad" {
    run --separate-stderr decode_points '[1, 22]\n[1, 222]\r\n[1, 2222]\n[1, 22222]\r\n[1, 333]' --max-size 8
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":22}\n{"nx":1,"ny":222}\n{"nx":1,"ny":333}' ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:3: found a line of more than 8 bytes, expected at most that many (see --max-size)" ]
    [ "${stderr_lines[1]}" = "jsonparser: <stdin>:4: found a line of more than 8 bytes, expected at most that many (see --max-size)" ]
    [ "${stderr_lines[2]}" = "jsonparser: 2 of 5 lines are bad" ]
}

@test "a line that is longer than any buffer is passed over" {
    run --separate-stderr bash -c '{ echo "[1, 2]"; head -c 9000000 /dev/zero | tr "\0" x; echo; echo "[3, 4]"
        head -c 9000000 /dev/zero | tr "\0" x; } | "$JSONPARSER" decode VK_POINT --lines'
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":3,"ny":4}' ]
    [ "${stderr_lines[0]}" = "jsonparser: <stdin>:2: found a line of more than 262144 bytes, expected at most that many (see --max-size)" ]
    [ "${stderr_lines[1]}" = "jsonparser: <stdin>:4: found a line of more than 262144 bytes, expected at most that many (see --max-size)" ]
    [ "${stderr_lines[2]}" = "jsonparser: 2 of 4 lines are bad" ]
}

@test "a file in UTF-16 or UTF-32 is one finding, and the next file is read" {
    printf '[5, 6]\n' >"$BATS_TEST_TMPDIR/good"
    for encoding in UTF-16 UTF-16LE UTF-16BE UTF-32 UTF-32LE UTF-32BE; do
        printf '[1, 2]\n[3, 4]\n' | iconv -t $encoding >"$BATS_TEST_TMPDIR/foreign"
        run --separate-stderr "$JSONPARSER" decode VK_POINT --lines "$BATS_TEST_TMPDIR/foreign" "$BATS_TEST_TMPDIR/good"
        [ "$status" -eq 1 ]
        [ "$output" = '{"nx":5,"ny":6}' ]
        [ "$stderr" = "jsonparser: $BATS_TEST_TMPDIR/foreign: found ${encoding:0:6}, expected UTF-8
jsonparser: 1 of 2 lines are bad" ]
    done
}

@test "each file has lines of its own numbers, and a line does not run on into the next file" {
    printf '[1, 2]\n[3' >"$BATS_TEST_TMPDIR/a"
    printf ', 4]\n[5, 6]' >"$BATS_TEST_TMPDIR/b"
    run --separate-stderr "$JSONPARSER" decode VK_POINT --lines "$BATS_TEST_TMPDIR/a" "$BATS_TEST_TMPDIR/b"
    [ "$status" -eq 1 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":5,"ny":6}' ]
    [[ "$stderr" == *"jsonparser: $BATS_TEST_TMPDIR/a:2:"* ]]
    [[ "$stderr" == *"jsonparser: $BATS_TEST_TMPDIR/b:1:"* ]]
    [ "${stderr_lines[-1]}" = "jsonparser: 2 of 4 lines are bad" ]
}

@test "standard input stands among the files as -" {
    printf '[1, 2]\n' >"$BATS_TEST_TMPDIR/a"
    run "$JSONPARSER" decode VK_POINT --lines "$BATS_TEST_TMPDIR/a" - "$BATS_TEST_TMPDIR/a" <<<'[3, 4]'
    [ "$status" -eq 0 ]
    [ "$output" = $'{"nx":1,"ny":2}\n{"nx":3,"ny":4}\n{"nx":1,"ny":2}' ]
}

@test "files that cannot be read give 3, and the others are read" {
    printf '[1, 2]\n[3' >"$BATS_TEST_TMPDIR/a"
    run --separate-stderr "$JSONPARSER" decode VK_POINT --lines "$BATS_TEST_TMPDIR/missing" "$BATS_TEST_TMPDIR" \
        "$BATS_TEST_TMPDIR/a"
    [ "$status" -eq 3 ]
    [ "$output" = '{"nx":1,"ny":2}' ]
    [ "${stderr_lines[0]}" = "jsonparser: $BATS_TEST_TMPDIR/missing: cannot be read: No such file or directory" ]
    [ "${stderr_lines[1]}" = "jsonparser: $BATS_TEST_TMPDIR: cannot be read: Is a directory" ]
}

@test "the order is that of the lines on any number of threads" {
    points 20000 >"$BATS_TEST_TMPDIR/points"
    sed -E 's/\[(.*), (.*)\]/{"nx":\1,"ny":\2}/' "$BATS_TEST_TMPDIR/points" >"$BATS_TEST_TMPDIR/expected"
    for jobs in 1 2 3 8 32; do
        "$JSONPARSER" decode VK_POINT --lines --jobs $jobs "$BATS_TEST_TMPDIR/points" |
            cmp - "$BATS_TEST_TMPDIR/expected"
        cat "$BATS_TEST_TMPDIR/points" | "$JSONPARSER" decode VK_POINT --lines --jobs $jobs |
            cmp - "$BATS_TEST_TMPDIR/expected"
    done
}

@test "as many threads are started as --jobs asks for, also more than there are cores" {
    python3 - <<'END'
import os, subprocess, threading, time
for jobs in (1, 3, 2 * os.cpu_count() + 3):
    tool = subprocess.Popen([os.environ["JSONPARSER"], "decode", "VK_POINT", "--lines", "--jobs", str(jobs)],
                            stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
    most = 0
    deadline = time.monotonic() + 30
    while time.monotonic() < deadline and most < jobs:
        tool.stdin.write(b"[1, 2]\n" * 100000)
        with open(f"/proc/{tool.pid}/status") as status:
            most = max(most, int(next(line for line in status if line.startswith("Threads:")).split()[1]))
    tool.stdin.close()
    assert tool.wait() == 0
    sanitizer = any(name in open(os.environ["JSONPARSER"], "rb").read() for name in (b"__asan_init", b"__tsan_init"))
    assert most == jobs or (sanitizer and most == jobs + 1), (jobs, most)
END
}

@test "findings are in the order of the lines too" {
    run --separate-stderr bash -c 'seq 5000 | "$JSONPARSER" decode VK_POINT --lines --jobs 8'
    [ "$status" -eq 1 ]
    [ "${stderr_lines[-1]}" = "jsonparser: 5000 of 5000 lines are bad" ]
    [ "$(sed -nE 's/^jsonparser: <stdin>:([0-9]+):1: .*/\1/p' <<<"$stderr")" = "$(seq 5000)" ]
}

@test "a live pipe gives each result before the next line comes" {
    python3 - <<'END'
import os, select, subprocess, time
tool = subprocess.Popen([os.environ["JSONPARSER"], "decode", "VK_POINT", "--lines"], bufsize=0,
                        stdin=subprocess.PIPE, stdout=subprocess.PIPE)
delays = []
for x in range(50):
    begin = time.monotonic()
    tool.stdin.write(b"[%d, 1]\n" % x)
    assert select.select([tool.stdout], [], [], 60)[0], "no result"
    assert tool.stdout.readline() == b'{"nx":%d,"ny":1}\n' % x
    delays.append(time.monotonic() - begin)
tool.stdin.close()
assert tool.wait() == 0
# Some milliseconds at most, however busy the machine is: half of them all the sooner.
assert sorted(delays)[25] < 0.005, delays
END
}

@test "memory stays the same however much is read" {
    if grep -qE '__(asan|tsan)_init' "$JSONPARSER"; then skip "a sanitizer needs memory of its own"; fi
    python3 - <<'END'
import json, os, resource, subprocess
with open(os.environ["MESSAGES"] + "/traffic_event.json", encoding="utf-8") as file:
    line = json.dumps(json.load(file)).encode() + b"\n"
tool = subprocess.Popen([os.environ["JSONPARSER"], "decode", "trafficcar", "--at", "/params/Events/0/TrafficCar",
                         "--lines"], stdin=subprocess.PIPE, stdout=subprocess.DEVNULL)
for _ in range(64 * 1024 * 1024 // (len(line) * 1000) + 1):
    tool.stdin.write(line * 1000)
tool.stdin.close()
assert tool.wait() == 0
peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
assert peak < 32 * 1024, f"{peak} KiB"
END
}

@test "memory stays below 64 MiB whatever the lines are" {
    python3 - <<'END'
import itertools, os, resource, string, subprocess
# A sanitizer takes memory of its own, and much more time: there, a line of each shape does.
sanitizer = any(name in open(os.environ["JSONPARSER"], "rb").read() for name in (b"__asan_init", b"__tsan_init"))
LIMIT = (20 if sanitizer else 256) * 1024  # of a line

def filled(begin, unit, end=""):
    return begin + unit * ((LIMIT - len(begin) - len(end)) // len(unit)) + end

def members(value, size):
    names = ("".join(name) for n in (1, 2, 3, 4) for name in itertools.product(string.ascii_letters, repeat=n))
    text = "{"
    while len(text) < size:
        text += ",".join('"%s":%s' % (name, value) for name in itertools.islice(names, 1000)) + ","
    return text[:text.rindex(",", 0, size - 7)] + ',"-":1}'

shapes = {
    "open arrays": filled("", "["),
    "nested objects": filled("", '{"":'),
    "empty arrays": filled("[", "[],", "[]]"),
    "empty objects": filled("[", "{},", "{}]"),
    "numbers": filled("[", "1,", "1]"),
    "texts": filled("[", '"",', '""]'),
    "one text": filled('"', "x", '"'),
    "deep arrays": filled("[", "[" * 60 + "]" * 60 + ",", "1]"),
    "short arrays": filled("[", "[[[]]],", "1]")[:16000].rsplit("[[[", 1)[0] + "1]",
    "small members": members("1", LIMIT),
    "members with arrays": members("[]", LIMIT),
    "members of short lines": members("1", 4000),
    "400,000 members": members("1", 4000000),
}
commands = (("decode", "VK_POINT"), ("decode", "trafficcar"), ("decode", "trafficcar", "--strict"),
            ("decode", "VK_POINT", "--lenient"), ("encode", "VK_POINT"))
for name, shape in shapes.items():
    line = shape.encode() + b"\n"
    for command in commands:
        # Findings of members take their time, each.
        size = 0 if sanitizer else 500000 if "members" in name else 2000000
        pid = os.fork()
        if pid == 0:
            tool = subprocess.Popen([os.environ["JSONPARSER"], *command, "--lines"], stdin=subprocess.PIPE,
                                    stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
            for _ in range(size // len(line) + 1):
                tool.stdin.write(line)
            tool.stdin.close()
            code = tool.wait()
            peak = resource.getrusage(resource.RUSAGE_CHILDREN).ru_maxrss
            print(f"{name}, {command}: {peak} KiB, {code}", flush=True)
            os._exit(0 if code in (0, 1) and (sanitizer or peak < 64 * 1024) else 1)
        assert os.waitpid(pid, 0)[1] == 0, (name, command)
END
}

@test "a closed pipe ends the run quietly" {
    run bash -c 'yes "[1, 2]" | { "$JSONPARSER" decode VK_POINT --lines 2>&1 >&3 | cat >&2; } 3>&1 | head -n 1'
    [ "$status" -eq 0 ]
    [ "$output" = '{"nx":1,"ny":2}' ]
}

@test "a closed pipe ends the run quietly where the signal is ignored" {
    run bash -c 'trap "" PIPE; { "$JSONPARSER" decode VK_POINT --lines <(points() { for ((;;)); do
        echo "[1, 2]" || exit; done; }; points 2>/dev/null) | head -n 1; } 2>&1'
    [ "$output" = '{"nx":1,"ny":2}' ]
}

@test "a full disk ends the run" {
    [ -e /dev/full ] || skip "no /dev/full"
    run bash -c 'yes "[1, 2]" | "$JSONPARSER" decode VK_POINT --lines 2>&1 >/dev/full'
    [ "$status" -eq 3 ]
    [ "$output" = "jsonparser: cannot write to standard output: No space left on device" ]
}

@test "--lines and --json are the same as --lines" {
    run decode_points '[1, 2]' --json
    [ "$status" -eq 0 ]
    [ "$output" = '{"nx":1,"ny":2}' ]
}

@test "--lines has no --hex" {
    run decode_points '[1, 2]' --hex
    [ "$status" -eq 2 ]
    [ "${#lines[@]}" -eq 1 ]
    [[ "$output" == *"--hex"*"--lines"* ]]
}

@test "--jobs and --max-size take numbers, --jobs for --lines only" {
    for arguments in "--jobs 2" "--lines --jobs 0" "--lines --jobs -1" "--lines --jobs x" \
        "--lines --jobs 1.5" "--lines --jobs 1025" "--lines --max-size 0" "--max-size 1X" "--lines --jobs" \
        "--lines --max-size 99999999999999999999"; do
        run bash -c "echo '[1, 2]' | \"\$JSONPARSER\" decode VK_POINT $arguments"
        [ "$status" -eq 2 ]
        [ "${#lines[@]}" -eq 1 ]
    done
}

@test "encode --lines writes what decode --lines read" {
    points 1000 >"$BATS_TEST_TMPDIR/points"
    "$JSONPARSER" decode VK_POINT --lines "$BATS_TEST_TMPDIR/points" | "$JSONPARSER" encode VK_POINT --lines |
        cmp - <(tr -d ' ' <"$BATS_TEST_TMPDIR/points")
}

@test "encode --lines names bad lines with their path and goes on" {
    run --separate-stderr bash -c 'printf "{\"nx\": 1, \"ny\": 2}\n{\"nx\": 70000}\n[]\n{\"nx\": 3}\n" |
        "$JSONPARSER" encode VK_POINT --lines'
    [ "$status" -eq 1 ]
    [ "$output" = $'[1,2]\n[3,0]' ]
    [[ "${stderr_lines[0]}" == "jsonparser: <stdin>:2:8: /nx: found 70000, expected "* ]]
    [[ "$stderr" == *"jsonparser: <stdin>:3:1: "* ]]
    [ "${stderr_lines[-1]}" = "jsonparser: 2 of 4 lines are bad" ]
}
