"""What the command-line tool does: whom it asks and as whom, its logs, every operation, its longer commands."""

import json
import os
import re
import shlex
import signal
import subprocess
import tempfile
import unittest

from ctl_support import CAMERA, TOOL, Case, Cloud, environment, run

LOG_LINE = re.compile(r"^\[\d+\] VX   (INFO |ERROR)\t<[\w:~]+>\t<\d+>,")


class Configuration(Case):
    def options(self, cloud):
        return ["--b-domain", cloud.b_domain, "--app-id", cloud.account["appKey"], "--access-token",
                cloud.account["accessToken"]]

    def test_options_reach_a_real_cloud(self):
        with Cloud() as cloud:
            self.document("detail", CAMERA, *self.options(cloud))
            sent = cloud.sent()[0]
        self.assertEqual((sent["accessToken"], sent["appKey"]),
                         (cloud.account["accessToken"], cloud.account["appKey"]))

    def test_an_option_wins_over_the_environment_and_that_over_the_file(self):
        with Cloud() as cloud, tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            json.dump({"bDomain": cloud.b_domain, "accessToken": "from-file", "appId": "from-file"}, file)
            file.flush()
            variables = {"VANTIXCTL_ACCESS_TOKEN": "from-environment"}
            for arguments, env in (
                    (["--credentials", file.name], {}),
                    ([], {"VANTIXCTL_CREDENTIALS": file.name}),
                    (["--credentials", file.name], variables),
                    (["--credentials", file.name, "--access-token=from-option"], variables)):
                run("detail", CAMERA, *arguments, env=env)
            sent = [(request["accessToken"], request["appKey"]) for request in cloud.sent()]
        self.assertEqual(sent, [("from-file", "from-file"), ("from-file", "from-file"),
                                ("from-environment", "from-file"), ("from-option", "from-file")])

    def test_the_cloud_s_own_information_is_a_credentials_file(self):
        with Cloud() as cloud, tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            json.dump(cloud.control("GET", "/info"), file)
            file.flush()
            self.succeeds("detail", CAMERA, "--credentials", file.name)
            self.assertEqual(len(cloud.journal()), 1)

    def test_a_file_without_an_object_is_wrong_usage(self):
        for content in ("", "[]", "{", "null"):
            with self.subTest(content=content), tempfile.NamedTemporaryFile("w", suffix=".json") as file:
                file.write(content)
                file.flush()
                self.assertIn("no JSON object", self.fails(2, "detail", CAMERA, "--credentials", file.name))

    def test_every_setting_reaches_the_data_center(self):
        for option, value, operation in (
                ("--app-id", "an-app", "getAppId"), ("--access-token", "a-token", "getAccessToken"),
                ("--session-id", "a-session", "getSessionId"), ("--auth-addr", "https://auth", "getAuthAddr"),
                ("--refresh-token", "a-refresh", "getRefreshToken"), ("--open-id", "an-id", "getOpenID"),
                ("--scope", "a-scope", "getScope"), ("--state", "a-state", "getState"),
                ("--global-tk-token", "a-tk", "getGlobalTkToken"),
                ("--shared-access-token", "shared", "getSharedAccessToken")):
            with self.subTest(option=option):
                self.assertEqual(self.succeeds(operation, option, value, "--b-domain", "https://x"), value + "\n")
        self.assertEqual(self.document("getPermissionMode", "--mode", "2")["result"], 2)
        self.assertEqual(self.document("getCacheTime", "--cache-time", "5")["result"], 300)
        self.assertEqual(self.succeeds("isDataUtf8"), "yes\n")
        self.assertEqual(self.succeeds("isDataUtf8", "--ansi"), "no\n")

    def test_modes_choose_credential_and_server(self):
        with Cloud() as cloud, tempfile.NamedTemporaryFile("w", suffix=".json") as file:
            json.dump(cloud.control("GET", "/info"), file)
            file.flush()
            self.succeeds("detail", CAMERA, "--credentials", file.name, "--mode", "1")
            self.assertEqual(cloud.sent()[0]["accessToken"], f"tk.video-{CAMERA}-1")
            shared = self.document("getDomain", "S60000006", "--credentials", file.name, "--mode", "2")
            own = self.document("getDomain", CAMERA, "--credentials", file.name, "--mode", "2")
            self.assertEqual((shared["result"], own["result"]), (cloud.c_domain, cloud.b_domain))


class Logs(Case):
    def test_none_unless_asked_for(self):
        self.succeeds("getDevDetailInfoSync", CAMERA, "then", "setCacheTime", "5", "then", "setLogLevel", "7")

    def test_to_a_file(self):
        with tempfile.TemporaryDirectory() as folder:
            path = os.path.join(folder, "tool.log")
            self.succeeds("detail", CAMERA, "--log", path)
            with open(path, encoding="utf-8") as file:
                lines = file.read().splitlines()
            self.assertTrue(all(LOG_LINE.match(line) for line in lines if line.startswith("[")))
            self.assertEqual(sum("start Posts url and Param" in line for line in lines), 1)
            self.succeeds("detail", CAMERA, "--log", path)
            with open(path, encoding="utf-8") as file:
                self.assertEqual(file.read().count("start Posts url and Param"), 2, "logs are appended to")

    def test_to_standard_error_once(self):
        done = run("detail", CAMERA, "--log", "-")
        self.assertEqual(done.returncode, 0)
        self.assertEqual(done.err.count("start Posts url and Param"), 1)
        self.assertEqual(done.out.count("VX   "), 0)

    def test_level(self):
        quiet = run("detail", CAMERA, "--log", "-", "--log-level", "5")
        self.assertNotIn("start Posts url and Param", quiet.err)
        self.assertIn("VX   ERROR", quiet.err)

    def test_a_file_that_cannot_be_written(self):
        self.assertIn("cannot write the log", self.fails(1, "detail", CAMERA, "--log", "/nowhere/at/all.log"))

    def test_messages_are_not_swallowed_by_the_log(self):
        with tempfile.TemporaryDirectory() as folder:
            self.assertIn("320002", self.fails(1, "detail", "X99999999", "--log", os.path.join(folder, "log")))


class Operations(Case):
    def test_every_slot_of_the_interface_is_reached_once(self):
        with open(os.environ["VANTIX_INTERFACE"], encoding="utf-8") as file:
            text = re.sub(r"//[^/\n]*slot (\d+)", r"@\1", file.read())
        slots = {int(slot): name for name, slot in
                 re.findall(r"virtual [\w:&\s\*]*?[&\*\s](\w+)\([^)]*\) = 0;\s*@(\d+)", text)}
        rows = self.document("operations")
        self.assertEqual(sorted(slots), list(range(1, 109)))
        self.assertEqual({row["slot"]: row["name"] for row in rows}, slots)
        self.assertEqual(len(rows), 108)

    def test_what_must_be_given_stands_before_what_may(self):
        for row in self.document("operations"):
            required = [argument["required"] for argument in row["arguments"]]
            self.assertEqual(required, sorted(required, reverse=True), row["name"])

    def test_arguments_by_name_or_by_place(self):
        expected = self.document("getDevDetailInfoSync", "R20000016", "3")["result"]["channel"]
        for arguments in (["--serial", "R20000016", "--channel", "3"], ["--channel=3", "R20000016"],
                          ["R20000016", "--channel", "3", "--force"]):
            self.assertEqual(self.document("getDevDetailInfoSync", *arguments)["result"]["channel"], expected)

    def test_operations_in_a_chain_share_the_caches(self):
        responses = self.document("getDevInfoCache", CAMERA, "then", "getDevDetailInfo", CAMERA, "then",
                                "getDevInfoCache", CAMERA, "then", "IsSupportSeekPlayback", CAMERA, "then",
                                "setChannelCacheValue", CAMERA, "42", "then", "getChannelCacheValue", CAMERA,
                                "then", "ClearAllCache", "then", "getChannelCacheValue", CAMERA, status=1)
        self.assertEqual([response["code"] for response in responses], [-1, 0, 0, 0, 0, 0, 0, -1])
        self.assertEqual([responses[3]["result"], responses[5]["result"]], [True, 42])
        self.assertEqual(responses[2]["result"]["device"]["iRequestCost"], 0)
        self.assertEqual((responses[0]["operation"], responses[0]["slot"]), ("getDevInfoCache", 68))

    def test_setters_and_getters(self):
        for setter, value, getter, shown in (
                ("setPermissionMode", "2", "getPermissionMode", "2"), ("setCacheTime", "7", "getCacheTime", "420"),
                ("setAppId", "id", "getAppId", "id"), ("setAccessToken", "t", "getAccessToken", "t"),
                ("setTokenExpireTime", "soon", "getTokenExpireTime", "soon"),
                ("setRefreshToken", "r", "getRefreshToken", "r"), ("setOpenID", "o", "getOpenID", "o"),
                ("setScope", "s", "getScope", "s"), ("setState", "s", "getState", "s"),
                ("setAuthAddr", "a", "getAuthAddr", "a"), ("setGlobalTkToken", "g", "getGlobalTkToken", "g"),
                ("setSharedAccessToken", "x", "getSharedAccessToken", "x"),
                ("setSessionId", "i", "getSessionId", "i"), ("setCloseP2P", "1", "isOpenP2P", "no"),
                ("setCloseBelongSerial", "1", "isCloseBelongSerial", "yes"),
                ("setDataUtf8", "2", "isDataUtf8", "no"), ("setLogLevel", "9", "getLogLevel", "9"),
                ("setDomain", "https://b", "getDomainByToken", "https://b")):
            with self.subTest(setter=setter):
                self.assertEqual(self.succeeds(setter, value, "then", getter), f"done\n{shown}\n")

    def test_tokens_of_devices(self):
        tokens = json.dumps([{"deviceTkToken": "d", "previewTkToken": "p", "deviceSerial": CAMERA, "channelNo": "1"}])
        for getter in ("getDeviceTkTokensByNumber", "getDeviceTkTokensByText"):
            self.assertEqual(self.succeeds("SetDeviceTkTokens", tokens, "then", getter, CAMERA, "1", "4"),
                             "done\np\n")
        shared = json.dumps([{"token": "b", "deviceSerial": CAMERA, "channelNo": "1", "isShared": 1}])
        for getter in ("getB2CTokensByNumber", "getB2CTokensByText"):
            self.assertEqual(self.succeeds("SetB2CTokens", shared, "then", getter, CAMERA), "done\nb\n")
        self.assertEqual(self.succeeds("SetB2CTokens", shared, "then", "isB2CSharedToken", "b", "then",
                                       "isB2CSharedChannel", CAMERA), "done\nyes\nyes\n")

    def test_a_failure_is_explained(self):
        text = self.fails(1, "getDevInfoCache", CAMERA)
        self.assertIn("getDevInfoCache: -1: nothing is cached", text)


class Prefetch(Case):
    def test_all_channels_of_the_account(self):
        with Cloud() as cloud:
            devices = [device for device in cloud.control("GET", "/devices") if not device["shared"]]
        expected = [(device["deviceSerial"], camera["cameraNo"]) for device in devices for camera in device["cameras"]]
        channels = self.document("prefetch", "--tasks", "3", "--page-size", "2")
        self.assertEqual([(one["serial"], one["channel"]) for one in channels], expected)
        self.assertEqual({one["code"] for one in channels}, {0})

    def test_for_people(self):
        text = self.succeeds("prefetch")
        for words in ("C10000001", "Gate camera", "● online", "○ offline", "VERSION_16", "24 of 24 details fetched"):
            self.assertIn(words, text)

    def test_tasks_are_bounded(self):
        with Cloud() as cloud:
            cloud.control("POST", "/scripted-responses", {"path": "/api/device/detail", "times": 0, "hold": "gate"})
            process = subprocess.Popen([*TOOL, "prefetch", "--tasks", "3", "--b-domain", cloud.b_domain,
                                        "--access-token", cloud.account["accessToken"]],
                                       stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=environment())
            most = 0
            while process.poll() is None:
                waiting = cloud.control("GET", "/holds").get("gate", 0)
                most = max(most, waiting)
                if waiting == 3 or most == 3:
                    cloud.control("POST", "/release", {"hold": "gate"})
            out, errors = process.communicate()
            self.assertEqual((process.returncode, errors, most), (0, b"", 3), out)

    def test_one_that_fails_is_shown_and_is_status_1(self):
        with Cloud() as cloud:
            cloud.control("POST", "/scripted-responses", {"path": "/api/device/detail", "times": 0, "code": "20007",
                                             "match": {"deviceSerial": CAMERA}})
            done = run("prefetch", "--b-domain", cloud.b_domain, "--access-token", cloud.account["accessToken"])
        self.assertEqual(done.returncode, 1)
        self.assertIn("320007", done.out)
        self.assertIn("● online", done.out)

    def test_a_list_that_fails(self):
        self.assertIn("getDevList", self.fails(1, "prefetch", "--b-domain", "https://127.0.0.1:9",
                                               "--access-token", "x"))


class Watch(Case):
    def start(self, cloud, *arguments):
        return subprocess.Popen([*TOOL, "watch", CAMERA, "--interval", "0", "--b-domain", cloud.b_domain,
                                 "--access-token", cloud.account["accessToken"], *arguments],
                                stdout=subprocess.PIPE, stderr=subprocess.PIPE, env=environment())

    def test_changes_failures_and_the_end(self):
        with Cloud() as cloud:
            process = self.start(cloud)
            try:
                self.assertIn("● online", process.stdout.readline().decode())
                cloud.control("PUT", "/devices/" + CAMERA, {"device": {"deviceStatus": 2}})
                self.assertIn("device.deviceStatus  1 → 2", process.stdout.readline().decode())
                cloud.control("POST", "/scripted-responses",
                              {"path": "/api/device/detail", "times": 2, "code": "20007"})
                self.assertIn("320007", process.stdout.readline().decode())
                self.assertIn("can be fetched again", process.stdout.readline().decode())
                process.send_signal(signal.SIGINT)
                rest, errors = process.communicate(timeout=60)
            finally:
                process.kill()
            self.assertEqual((process.returncode, rest, errors), (0, b"", b""))

    def test_lines_of_json(self):
        with Cloud() as cloud:
            process = self.start(cloud, "--json")
            try:
                self.assertEqual(json.loads(process.stdout.readline())["result"]["device"]["deviceSerial"], CAMERA)
                cloud.control("PUT", f"/devices/{CAMERA}/cameras/1", {"videoLevel": 0})
                change = json.loads(process.stdout.readline())
                process.send_signal(signal.SIGINT)
                process.communicate(timeout=60)
            finally:
                process.kill()
            self.assertEqual((change["member"], change["before"], change["after"]), ("channel.videoLevel", 2, 0))

    def test_it_ends_after_so_many_looks(self):
        with Cloud() as cloud:
            process = self.start(cloud, "--times", "3")
            process.communicate(timeout=60)
            self.assertEqual((process.returncode, len(cloud.journal())), (0, 3))
        self.assertEqual(run("watch", "X99999999", "--times", "1").returncode, 1)


class Remote(Case):
    """What also holds where the tool has no loopback cloud of its own."""

    def setUp(self):
        self.cloud = self.enterContext(Cloud())
        self.whom = ["--b-domain", self.cloud.b_domain, "--access-token", self.cloud.account["accessToken"]]

    def test_a_detail(self):
        device = self.document("detail", CAMERA, *self.whom)["result"]["device"]
        self.assertEqual((device["deviceSerial"], device["deviceIP"]), (CAMERA, "198.51.100.21"))
        self.assertIn("● online", self.succeeds("detail", CAMERA, *self.whom))

    def test_a_failure(self):
        self.assertIn("320002", self.fails(1, "detail", "X99999999", *self.whom))

    def test_a_chain(self):
        self.assertEqual(self.succeeds("setCacheTime", "5", "then", "getCacheTime", *self.whom), "done\n300\n")

    def test_logs(self):
        done = run("detail", CAMERA, "--log", "-", *self.whom)
        self.assertEqual((done.returncode, done.err.count("start Posts url and Param")), (0, 1))
        self.assertNotIn(self.cloud.account["accessToken"], done.err)


class Completion(Case):
    def complete(self, *words):
        script = (f'source <({shlex.join(TOOL)} completion bash)\n'
                  'COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vantixctl; printf "%s\\n" "${COMPREPLY[@]}"')
        done = subprocess.run(["bash", "-c", script, "bash", "vantixctl", *words], capture_output=True, text=True,
                              env=environment(), timeout=60, check=True)
        self.assertEqual(done.stderr, "")
        return done.stdout.split()

    def test_commands(self):
        self.assertEqual(self.complete("to"), ["tour"])
        self.assertIn("getDevDetailInfoSync", self.complete("getDev"))
        self.assertEqual(self.complete("help", "expl"), ["explain"])

    def test_options_of_the_command_and_of_all(self):
        self.assertIn("--msg-seq", self.complete("getTransparentMsgDetail", "--m"))
        self.assertIn("--mode", self.complete("getTransparentMsgDetail", "--m"))
        self.assertNotIn("--msg-seq", self.complete("detail", "--m"))

    def test_values(self):
        self.assertEqual(self.complete("detail", "--mode", ""), ["0", "1", "2"])
        self.assertEqual(self.complete("detail", "--color", "al"), ["always"])
        self.assertEqual(self.complete("detail", "--access-token", ""), [])

    def test_chains(self):
        self.assertEqual(self.complete("getCacheTime", "th"), ["then"])
        self.assertIn("setCacheTime", self.complete("getCacheTime", "then", "setC"))

    def test_every_command_is_offered(self):
        offered = set(self.complete(""))
        self.assertLessEqual({row["name"] for row in self.document("operations")}, offered)


class Example(Case):
    def test_the_host_of_the_readme(self):
        with Cloud() as cloud:
            account = cloud.account
            done = subprocess.run([*shlex.split(os.environ["VANTIX_HOST_EXAMPLE"]), cloud.b_domain, account["appKey"],
                                   account["accessToken"], CAMERA], capture_output=True, text=True, timeout=60,
                                  check=False)
            self.assertEqual((done.returncode, done.stdout), (0, f"0: {CAMERA} is online\n"))
            self.assertEqual(len(cloud.journal()), 1)


if __name__ == "__main__":
    unittest.main()
