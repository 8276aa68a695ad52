"""What fuzz_arguments.py gives to igdctl: argument vectors and descriptions of connections.

No word is a path outside the folder of the run: some commands write the file they are given.
"""

import copy
import json
import string

HOSTILE = [
    # Words that are options, lists, patterns or formats to somebody, and those of great length.
    b"", b" ", b"-", b"--", b"---", b"=", b",", b",,", b"\"'\\`$(x)", b"%s%n%x", b"*?[",
    b"A" * 300, b"A" * 100000,
    # What a terminal obeys, and what is not UTF-8.
    b"\x1b[31mred\x1b[0m", b"\x1b]0;title\x07", b"line\nbreak", b"tab\tcr\r", b"\x01\x7f",
    b"\xff\xfe", b"\xc3", b"\xed\xa0\x80", b"\xc2\x9b31m", "Gäste 客 \u202e".encode(),
    # Numbers out of range, or none.
    b"-1", b"0", b"4095", b"2147483648", b"-2147483649", b"18446744073709551616",
    b"99999999999999999999999", b"1e9", b"0x10", b"007", b" 7", b"7 ", b"7x", b"nan", b"true",
    b"null",
    # Files that cannot be used; addresses, ports and connections that are none.
    b"folder", b"missing.json", b"/dev/null/x", b"256.0.0.1", b"1.2.3", b"1.1.1.1.1",
    b"LAN1,LAN1", b"LAN99", b"9.9", b"1.1.1",
]

GOOD = {
    "connection": "Internet Television Management 1.1 1.2 1.3 "
                  "InternetGatewayDevice.WANDevice.1.WANConnectionDevice.1.",
    "name": "Internet Guests Telephones",
    "class": "routed bridged routed-bridged",
    "mode": "dhcp static pppoe",
    "access": "Ethernet 3G Repeator",
    "vlan": "0 1 46 100 200 300 4059 4094",
    "priority": "0 5 7",
    "service": "INTERNET TR069 VOIP OTHER INTERNET,VOIP",
    "ports": "LAN1 LAN1,LAN2 LAN3 WLAN1 LAN4,WLAN2",
    "switch": "on off",
    "text": "gateway set-top user@example.net",
    "address": "192.0.2.1 192.0.2.10 198.51.100.1 0.0.0.0",
    "mask": "255.255.255.0 255.255.0.0 0.0.0.0",
    "network": "198.51.100.0/24 203.0.113.128/25 198.51.100.0 0.0.0.0/0",
    "dns": "192.0.2.53 192.0.2.53,192.0.2.54",
    "mtu": "576 1400 1492 1500",
    "port_text": "LAN3=set-top LAN4=x",
    "file": "wan.json dump.csv password new.csv new.json -",
    "seconds": "1 60 86400",
    "url": "https://acs.example.net/cpe http://192.0.2.9:7547/",
    "bridge": "internet br_1_1 br_1_2 InternetGatewayDevice.Layer2Bridging.Bridge.1.",
    "interface": "LAN1 LAN3 eth1.100 WLAN1",
    "parameter": "InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName "
                 "Layer2Bridging.Bridge.2.VLANID InternetGatewayDevice.ManagementServer.URL "
                 "Layer2Bridging.Bridge.",
    "assignment": "InternetGatewayDevice.Layer2Bridging.Bridge.1.BridgeName=lan "
                  "Layer2Bridging.Bridge.1.BridgeEnable=true Layer2Bridging.Bridge.2.VLANID=5",
    "checkpoint": "before @1 @2 after",
    "format": "text dot svg csv json",
    "shell": "bash zsh fish",
}
GOOD = {kind: [word.encode() for word in words.split()] for kind, words in GOOD.items()}

CHANGE = {"--dry-run": None, "--confirm": "seconds", "--yes": None}
FORCE = dict(CHANGE, **{"--force": None})
DESCRIPTION = {
    "--access": "access", "--name": "name", "--class": "class", "--mode": "mode", "--vlan": "vlan",
    "--priority": "priority", "--service": "service", "--bind-lan": "ports", "--bind-wan": "ports",
    "--nat": "switch", "--user": "text", "--address": "address", "--mask": "mask",
    "--gateway": "address", "--dns": "dns", "--mtu": "mtu", "--option60": "text",
    "--port-option60": "port_text", "--enable": "switch", "--remote-management": "switch",
    "--stp": "switch", "--password-file": "file", "--password-prompt": None, "--from": "file",
}
ACS = {
    "--url": "url", "--username": "text", "--request-url": "url", "--request-username": "text",
    "--password-file": "file", "--password-prompt": None, "--request-password-file": "file",
}
ROUTE = {"--gateway": "address", "--connection": "connection", "--disabled": None}
TREE_SET = {"--value-file": "file", "--prompt": None, "--from": "file"}
GLOBAL = {
    "--json": None, "--show-secrets": None, "--quiet": None, "--verbose": None, "--help": None,
    "--version": None, "--trace": "=file", "--store": "file", "--no-such-option": "text",
}

# The words of a command, the kinds of its arguments, its options with the kinds of their values.
COMMANDS = [
    ("wan list", [], {}),
    ("wan show", ["connection"], {}),
    ("wan status", ["connection"], {}),
    ("wan ports", ["connection"], {}),
    ("wan create", [], dict(FORCE, **DESCRIPTION)),
    ("wan create --mode dhcp", [], dict(FORCE, **DESCRIPTION)),
    ("wan set", ["connection"], dict(FORCE, **DESCRIPTION)),
    ("wan ensure", [], dict(FORCE, **DESCRIPTION)),
    ("wan check", ["connection"], dict(DESCRIPTION, **{"--removal": None})),
    ("wan remove", ["connection"], FORCE),
    ("bridge list", [], {}),
    ("bridge show", ["bridge"], {}),
    ("bridge of", ["interface"], {}),
    ("bridge create", ["connection"], CHANGE),
    ("bridge remove", ["bridge"], FORCE),
    ("bridge move", ["interface", "bridge"], CHANGE),
    ("vlan free", [], {}),
    ("route list", [], {}),
    ("route add", ["network", "mask"], dict(CHANGE, **ROUTE)),
    ("route add", ["network"], dict(CHANGE, **ROUTE)),
    ("route remove", ["network"], CHANGE),
    ("route clear", [], CHANGE),
    ("acs show", [], {}),
    ("acs set", [], dict(CHANGE, **ACS)),
    ("lan show", [], {}),
    ("topology", [], {"--format": "format"}),
    ("doctor", [], {}),
    ("tree get", ["parameter"], {}),
    ("tree set", ["assignment"], dict(FORCE, **TREE_SET)),
    ("tree set", ["parameter", "text"], dict(FORCE, **TREE_SET)),
    ("tree list", ["parameter"], {}),
    ("tree dump", ["parameter"], {}),
    ("tree find", ["text"], {"--value": "text"}),
    ("store path", [], {}),
    ("store import", ["file"], dict(CHANGE, **{"--keep-corrupt-aside": None})),
    ("store export", ["file"], {"--format": "format"}),
    ("store checkpoint", ["checkpoint"], {}),
    ("store checkpoint list", [], {}),
    ("store checkpoint delete", ["checkpoint"], {}),
    ("store restore", ["checkpoint"], CHANGE),
    ("store diff", ["checkpoint", "checkpoint"], {}),
    ("store history", [], {}),
    ("store confirm", [], {}),
    ("store revert", [], {}),
    ("completion", ["shell"], {}),
]


def value(chance, kind):
    return chance.choice(HOSTILE if chance.random() < 0.15 else GOOD[kind])


def option(chance, options):
    """An option with its value, as one word or as two, now and then without."""
    name = chance.choice(sorted(options))
    kind = options[name]
    word = name.encode()
    if kind is None or chance.random() < 0.03:
        return [word]
    text = value(chance, kind.lstrip("="))
    return [word + b"=" + text] if kind[0] == "=" or chance.random() < 0.5 else [word, text]


def mistyped(chance, word):
    """The word with one letter changed; a path stays as it is."""
    if not word or b"/" in word:
        return word
    place = chance.randrange(len(word))
    letter = chance.choice(string.ascii_letters + string.digits + "-=., ").encode()
    return word[:place] + letter + word[place + 1:]


def argument_vector(chance):
    command, arguments, options = chance.choice(COMMANDS)
    words = [[word.encode()] for word in command.split()]
    rest = [[value(chance, kind)] for kind in arguments if chance.random() < 0.9]
    rest += [option(chance, options) for _ in range(chance.randrange(5)) if options]
    if rest and chance.random() < 0.1:
        rest.append(chance.choice(rest))
    chance.shuffle(rest)
    first = [option(chance, GLOBAL) for _ in range(chance.choice([0, 0, 1, 2]))]
    flat = [word for group in first + words + rest for word in group]
    if chance.random() < 0.1:
        place = chance.randrange(len(flat))
        flat[place] = mistyped(chance, flat[place])
    return flat


def hostile_json(chance):
    text = chance.choice(HOSTILE).decode("utf-8", "surrogateescape")
    nested = []
    for _ in range(50):
        nested = [nested]
    return chance.choice([
        None, True, False, 0, -1, 7, 4095, 2 ** 31, 2 ** 64, -2 ** 63, 1.5, 1e308, text, "a\0b", [],
        {}, [text], [[text]], {"": text}, {text: None}, ["LAN1", 1], nested, ["LAN1"] * 500,
    ])


def change_key(chance, description):
    key = chance.choice(sorted(description))
    kept = description.pop(key)
    name = chance.choice([key.upper(), key + "s", "", key[:-1], "x\x1b[31m", "k" * 5000])
    description[name] = kept


def change_value(chance, description):
    description[chance.choice(sorted(description))] = hostile_json(chance)


def drop_key(chance, description):
    del description[chance.choice(sorted(description))]


def give_good_value(chance, description):
    key = chance.choice(["vlan", "priority", "mtu", "nat", "stp", "name", "bind_lan", "option60"])
    description[key] = chance.choice(
        {"vlan": [0, 300, 4094], "priority": [0, 7], "mtu": [576, 1400], "nat": [True, False],
         "stp": [True, False], "name": ["Guests", "Internet"], "bind_lan": [["LAN4"], []],
         "option60": ["gateway"]}[key])


def damaged(chance, text):
    """The text with bytes flipped, put in, cut off or nested out of reason."""
    place = chance.randrange(len(text) + 1)
    return chance.choice([
        text[:place],
        text[:place] + bytes([chance.randrange(256)]) + text[place + 1:],
        text[:place] + chance.choice(HOSTILE) + text[place:],
        text + text,
        b"\xef\xbb\xbf" + text,
        text.replace(b'"name"', b'"vlan": 5, "name"', 1),
        b"[" * 100000,
        b"[" * 100000 + b"]" * 100000,
        b'{"name":' * 20000 + b"1" + b"}" * 20000,
        b"",
    ])


def description_text(chance, shown):
    """A description as bytes, made from one that igdctl showed."""
    description = copy.deepcopy(shown)
    if chance.random() < 0.6:
        give_good_value(chance, description)
    changes = [change_key, change_value, change_value, drop_key, give_good_value, give_good_value]
    for _ in range(chance.randrange(3)):
        if description:
            chance.choice(changes)(chance, description)
    wrapped = chance.choice([description] * 6 + [[description], [description] * 2,
                                                 {"format": 1, "kind": "wan.show",
                                                  "data": description}])
    text = json.dumps(wrapped, ensure_ascii=chance.random() < 0.5)
    raw = text.encode("utf-8", "surrogateescape")
    return damaged(chance, raw) if chance.random() < 0.3 else raw


# Commands that take a description, each with the connection whose description fits it.
TAKERS = [
    ("wan create", "Guests"), ("wan check", "Guests"), ("wan ensure", "Guests"),
    ("wan ensure", "Internet"), ("wan set Internet", "Internet"), ("wan check 1.1", "Internet"),
    ("wan set 1.2", "Television"), ("wan set Management", "Management"),
]


def description_case(chance, shown):
    """An argument vector and the description that it reads; shown has descriptions by name."""
    command, name = chance.choice(TAKERS)
    if chance.random() < 0.1:
        name = chance.choice(sorted(shown))
    vector = command.encode().split() + [b"--from", b"-"]
    if vector[1] != b"check":
        vector += [word for word in (b"--dry-run", b"--yes", b"--force") if chance.random() < 0.2]
    if chance.random() < 0.2:
        vector.insert(0, b"--json")
    return vector, description_text(chance, shown[name])
