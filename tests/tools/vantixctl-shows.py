"""What the command-line tool prints, for people and for machines, and its exit statuses."""

import json
import os
import re
import unittest

from ctl_support import CAMERA, Case, Cloud, run

ESCAPE = "\033["


class Usage(Case):
    WRONG = [
        ([], "--help"),
        (["detial"], "did you mean detail?"),
        (["xyzzyxyzzy"], 'no command "xyzzyxyzzy"'),
        (["detail"], "--serial"),
        (["detail", CAMERA, "one"], "--channel takes a number"),
        (["detail", CAMERA, "1", "2"], 'no further argument, but got "2"'),
        (["detail", CAMERA, "--channel"], "needs a value"),
        (["detail", CAMERA, "--nothing", "1"], "unknown option --nothing"),
        (["detail", CAMERA, "-x"], "unknown option -x"),
        (["detail", CAMERA, "--json=1"], "takes no value"),
        (["detail", CAMERA, "--color", "pink"], "auto, always or never"),
        (["detail", CAMERA, "--mode", "two"], "--mode takes a number"),
        (["detail", CAMERA, "--log-level", "99999999999"], "--log-level takes a number"),
        (["detail", CAMERA, "--credentials", "/nowhere/at/all.json"], "cannot read"),
        (["explain"], "--code"),
        (["explain", "3100a2"], "takes a number"),
        (["completion", "fish"], "bash only"),
        (["help", "nothing"], 'no command "nothing"'),
        (["getCacheTime", "then"], "missing"),
        (["getCacheTime", "then", "detail", CAMERA], "chained"),
        (["prefetch", "--tasks", "0"], "from 1 to 32"),
        (["watch", CAMERA, "--times=-1"], "no negative"),
    ]

    def test_wrong_usage_is_status_2_and_says_what_is_wrong(self):
        for arguments, text in self.WRONG:
            with self.subTest(arguments=arguments):
                self.assertIn(text, self.fails(2, *arguments))

    def test_help_names_every_command_and_option(self):
        text = self.succeeds("--help")
        for name in ("tour", "detail", "prefetch", "watch", "explain", "completion", "--b-domain", "--c-domain",
                     "--access-token", "--session-id", "--app-id", "--auth-addr", "--refresh-token", "--open-id",
                     "--mode", "--utf8", "--credentials", "--log", "--log-level", "--json"):
            self.assertIn(name, text)
        self.assertEqual(text, self.succeeds("-h"))
        self.assertEqual(text, self.succeeds("help"))

    def test_every_command_has_help(self):
        names = [row["name"] for row in json.loads(self.succeeds("operations", "--json"))]
        for name in ["tour", "detail", "prefetch", "watch", "explain", "operations", "completion", *names]:
            with self.subTest(name=name):
                text = self.succeeds(name, "--help")
                self.assertIn("vantixctl " + name, text)
                self.assertEqual(text, self.succeeds("help", name))

    def test_version(self):
        self.assertRegex(self.succeeds("--version"), r"^vantixctl \d+\.\d+\.\d+\n$")

    def test_colour_is_for_terminals_and_for_those_who_ask(self):
        self.assertNotIn(ESCAPE, self.succeeds("--help"))
        self.assertIn(ESCAPE, self.succeeds("--help", "--color", "always"))
        self.assertNotIn(ESCAPE, self.succeeds("--help", "--color=never"))


class Explain(Case):
    WORDS = {
        0: "success",
        -1: "nothing is cached",
        100006: "resolve host",
        100007: "connect to server",
        100028: "Timeout",
        300001: "not JSON",
        300002: "envelope",
        310002: "access token has expired",
        349999: "49999",
        350000: "50000",
        600001: "another release",
        320002: "its own code 20002",
        700000: "its own code 400000",
        1: "P2P user",
        5: "no operation",
        -3: "10001",
        -5: "expired",
        -101: "20031",
    }

    def test_codes_in_words(self):
        for code, words in self.WORDS.items():
            with self.subTest(code=code):
                text = self.succeeds("explain", str(code))
                self.assertTrue(text.startswith(f"{code}  "), text)
                self.assertIn(words, text)

    def test_json(self):
        response = self.document("explain", "310002")
        self.assertEqual(list(response), ["code", "layer", "meaning", "advice"])
        self.assertEqual((response["code"], response["layer"]), (310002, "platform"))
        self.assertEqual(self.document("explain", "100007")["layer"], "transport")
        self.assertEqual(self.document("explain", "-1")["layer"], "core")


class Tour(Case):
    def test_it_prints_every_step(self):
        text = self.succeeds("tour")
        for words in ("Configure", "untouched", "Mark it for update", "capabilities", "ClearAllCache", "a miss",
                      "6 devices, 24 channels", "320002", "600001", "100007", "POST /api/device/detail", "deviceSerial=" + CAMERA,
                      "every step went as it should"):
            self.assertIn(words, text)
        self.assertNotIn(ESCAPE, text)

    def test_steps_and_requests(self):
        tour = self.document("tour")
        self.assertTrue(all(step["asExpected"] for step in tour["steps"]))
        fetches = [step for step in tour["steps"] if step["call"].startswith(f"getDevDetailInfo({CAMERA}")]
        self.assertEqual([(step["returned"], step["future"]) for step in fetches],
                         [(-1, 0), (0, None), (0, 0), (-1, 100007)])
        self.assertEqual(fetches[1]["cost"], 0)
        self.assertEqual([(request["path"], request["parameters"].get("deviceSerial")) for request in tour["requests"]],
                         [("/api/device/detail", CAMERA), ("/api/device/detail", CAMERA), ("/api/device/list", None),
                          ("/api/service/media/server/info", None), ("/api/sdk/p2p/dev/info/get", CAMERA),
                          ("/api/user/token", None), ("/api/device/detail", "X99999999"),
                          ("/api/device/detail", "V40000004")])

    def test_it_stays_on_this_machine_and_ignores_the_configuration(self):
        self.succeeds("tour", "--b-domain", "https://127.0.0.1:9", "--access-token", "wrong",
                      env={"VANTIXCTL_MODE": "1"})

    def test_secrets_are_masked(self):
        with Cloud() as cloud:
            self.succeeds("detail", CAMERA, "--b-domain", cloud.b_domain, "--access-token",
                          cloud.account["accessToken"], "--app-id", cloud.account["appKey"])
            feature_code = cloud.sent()[0]["featureCode"]
            secrets = [cloud.account[name] for name in ("accessToken", "appKey", "sessionId", "refreshToken", "openId",
                                                        "refreshSessionId", "sharedAccessToken", "globalTkToken")]
        for output in (self.succeeds("tour", "--color", "always"), self.succeeds("tour", "--json"),
                       self.succeeds("tour", "--show-secrets")):
            for secret in [feature_code, *secrets]:
                self.assertNotIn(secret, output)
            self.assertIn("***", output)

    def test_it_fits_the_screen(self):
        for columns in (80, 100, 140):
            lines = self.succeeds("tour", env={"COLUMNS": str(columns)}).splitlines()
            self.assertLessEqual(max(map(len, lines)), columns)
            self.assertEqual(len({len(line) for line in lines if line.startswith("│")}), 1, "the frames are flush")


class Detail(Case):
    @staticmethod
    def members(header, structure):
        with open(os.path.join(os.environ["VANTIX_RECORDS"], header), encoding="utf-8") as file:
            body = re.search(rf"struct {structure}\b[^{{;]*{{(.*?)\n}};", file.read(), re.S).group(1)
        return re.findall(r"^    [\w:<>]+ (\w+)(?: = [^;]*)?;", body, re.M)

    def test_json_has_every_field_of_both_records(self):
        response = self.document("detail", CAMERA, "1")
        self.assertEqual(list(response), ["operation", "code", "meaning", "milliseconds", "result"])
        self.assertEqual((response["code"], response["meaning"]), (0, "success"))
        channel, device = response["result"]["channel"], response["result"]["device"]
        self.assertEqual(list(channel), self.members("DevChannelInfo.h", "DevChannelInfo"))
        self.assertEqual(list(device), self.members("BelongDevInfo.h", "BelongDevInfo") +
                         self.members("DevDetailInfo.h", "DevDetailInfo"))
        self.assertEqual(device["deviceSerial"], CAMERA)
        self.assertEqual(list(device["vtmBackups"][0]), self.members("VtmAddr.h", "VtmAddr"))
        self.assertEqual(list(channel["videoQualityInfos"][0]),
                         self.members("VideoQualityInfo.h", "VideoQualityInfo"))
        self.assertIs(device["isFromCache"], False)

    def test_values_are_those_of_the_cloud(self):
        with Cloud() as cloud:
            sample = cloud.control("GET", "/devices/R20000016")
        result = self.document("detail", "R20000016", "7")["result"]
        self.assertEqual(result["channel"]["cameraNo"], 7)
        for name in ("deviceIP", "devicePort", "belongSerial", "encryptPwd", "supportChannelNums", "publicKey"):
            self.assertEqual(result["device"][name], sample["device"][name])
        self.assertEqual(result["device"]["support_quickplay_way"], 2)

    def test_for_people(self):
        text = self.succeeds("detail", "B30000003").replace("\u00a0", " ")
        for words in ("B30000003", "● online", "198.51.100.23", "R20000016, channel 3", "✓", "203.0.113.51:8554",
                      "2 Full HD (main)", "from the cloud"):
            self.assertIn(words, text)

    def test_keys_are_masked_for_people_unless_they_ask(self):
        password = self.document("detail", "R20000016")["result"]["device"]["encryptPwd"]
        self.assertNotIn(password, self.succeeds("detail", "R20000016"))
        self.assertIn(password, self.succeeds("detail", "R20000016", "--show-secrets"))
        self.assertNotIn(password, self.succeeds("getDevDetailInfoSync", "R20000016"))

    def test_a_failure_is_status_1(self):
        self.assertIn("320002", self.fails(1, "detail", "X99999999"))
        response = self.document("detail", "X99999999", status=1)
        self.assertEqual((response["code"], response["result"]), (320002, None))
        self.assertIn("20002", response["meaning"])

    def test_a_server_that_is_not_there(self):
        self.assertIn("100007", self.fails(1, "detail", CAMERA, "--b-domain", "https://127.0.0.1:9",
                                           "--access-token", "x"))

    def test_without_a_credential_nothing_is_sent(self):
        with Cloud() as cloud:
            self.assertIn("-1", self.fails(1, "detail", CAMERA, "--b-domain", cloud.b_domain))
            self.assertEqual(cloud.journal(), [])

    def test_hostile_text_cannot_take_over_the_terminal(self):
        with Cloud() as cloud:
            cloud.control("PUT", "/devices/" + CAMERA, {"device": {"deviceIP": "\x1b[2J\x1b]0;title\x07\u009b31m"}})
            text = self.succeeds("detail", CAMERA, "--b-domain", cloud.b_domain, "--access-token",
                                 cloud.account["accessToken"])
        self.assertFalse(re.search("[\x00-\x09\x0b-\x1f\x7f-\x9f]", text))

    def test_bytes_that_are_no_utf8_still_give_json(self):
        with Cloud() as cloud:
            body = b'{"result":{"code":"200","data":{"camera":{"cameraId":"\xff\xfe"},"device":{"deviceSerial":"A"}}}}'
            cloud.control("POST", "/scripted-responses", {"path": "/api/device/detail", "bodyHex": body.hex()})
            done = run("detail", CAMERA, "--json", "--b-domain", cloud.b_domain, "--access-token",
                       cloud.account["accessToken"])
        response = json.loads(done.out)
        self.assertEqual((response["code"], response["result"]["channel"]["cameraId"]), (0, "\ufffd\ufffd"))


if __name__ == "__main__":
    unittest.main()
