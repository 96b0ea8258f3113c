"""Every operation of the interface, driven by the command-line tool against its loopback cloud: exit status, a
characteristic word of what people see, and a document for machines."""

import json
import os
import pty
import re
import subprocess
import tempfile
import unittest

from ctl_support import CAMERA, TOOL, Case, Cloud, environment, run

SHARED = "S60000006"
CACHED = ["getDevDetailInfoSync", CAMERA, "then"]
TK = json.dumps([{"deviceTkToken": "tk-d", "talkTkToken": "tk-t", "deviceSerial": CAMERA, "channelNo": "1"}])
B2C = json.dumps([{"token": "b2c-x", "deviceSerial": CAMERA, "channelNo": "1", "isShared": 1}])

# Arguments, exit status, and a word of what is printed: on standard error when the status is not 0.
ROWS = [
    (["getTicketInfo", CAMERA], 0, "tk.media."),
    (["getTicketInfo", CAMERA, "9"], 1, "320032"),
    (["getCloudTicketInfo", CAMERA], 0, "tk.cloud."),
    (["getRelayTicket", CAMERA], 0, "tk.relay."),
    (["getDevDetailInfo", CAMERA], 0, "from the cloud"),
    (["getDevDetailInfoSync", "X99999999"], 1, "320002"),
    ([*CACHED, "getDevDetailInfoSync", CAMERA], 0, "from the cache"),
    (["getDeviceDetailInfo", CAMERA, "1", "camera", "p-1"], 0, "198.51.100.21"),
    (["isP2PV3download", CAMERA], 0, "yes"),
    (["getDevDetailInfoByRelation", "B30000003"], 0, "R20000016"),
    (["getServerInfoAsync"], 0, "stun1.example.test"),
    (["getServerInfoEx", CAMERA], 0, "vtm-b2.example.test"),
    (["getServerInfoSync"], 0, "log.example.test"),
    (["getServerInfoSync", "b2c." + SHARED, "--mode", "2"], 0, "das.example.test"),
    (["getVideoVtmAddr", CAMERA], 0, "vtm-b1.example.test"),
    (["getVideoVtmAddr", CAMERA, "--access-token", "expired"], 0, "vtm-b1.example.test"),
    (["getVideoVtmAddr", CAMERA, "--access-token", "expired", "--refresh-token", "wrong"], 1, "names no relays"),
    (["getRelayServerInfo", CAMERA], 0, "relay-public-key-0001"),
    (["getDeviceInfoBySerial", CAMERA], 0, "(2342 characters)"),
    (["getDevList"], 0, "Cellar camera"),
    (["getDevList", "--page-size", "1", "--page-start", "2"], 0, "Stairs camera"),
    (["getDeviceList"], 0, "Old camera"),
    (["getShareDevList"], 0, SHARED),
    (["getB2CSharedDevList"], 0, "Neighbour's camera"),
    (["getB2CSharedDevList", "--session-id", "expired"], 1, "300401"),
    (["getAlarmList", CAMERA], 0, "Motion at the gate"),
    (["getAlarmList", CAMERA, "--start", "2024-01-02 03:00:00"], 0, "none"),
    (["getUsername"], 0, "sample-user"),
    (["getConfigInfo"], 0, "push-auth.example.test"),
    (["getTransparentMsgDetail", CAMERA, "M0000001"], 0, '{"door":"open"}'),
    (["getTransparentMsgDetail", CAMERA, "M9"], 1, "320034"),
    (["getP2PUserInfoAsync"], 0, "u-10001"),
    (["getP2PUserInfoByToken"], 0, "p2p***"),
    (["getP2PUserInfoByDevice", CAMERA], 0, "saltIndex"),
    (["getP2PDevInfoAsync", CAMERA], 0, "203.0.113.61"),
    (["getP2PDevInfoCached", CAMERA], 0, "203.0.113.62"),
    (["getP2PDevInfoBySerial", CAMERA], 0, "strV3Download"),
    (["getP2PDevInfoBySerial", SHARED, "b2c." + SHARED, "--mode", "2"], 0, "203.0.113.61"),
    (["getP2PDevInfoByChannel", "R20000016", "2"], 0, "R20000016"),
    ([*CACHED, "getChannelCacheValue", CAMERA], 0, "1"),
    (["getChannelCacheValue", CAMERA], 1, "fetch it first"),
    ([*CACHED, "setChannelCacheValue", CAMERA, "42", "then", "getChannelCacheValue", CAMERA], 0, "42"),
    (["setVideoDefinition", CAMERA, "0"], 0, "done"),
    (["setAlarmRead", "AL1001", "then", "getAlarmList", CAMERA, "--status", "0"], 0, "none"),
    (["setAlarmRead", "AL9"], 1, "320034"),
    (["getStreamTokens", "3"], 0, "000001, st."),
    (["getStreamTokens", "0"], 1, "310001"),
    (["getStreamTokens", "--token", "b2c." + SHARED, "--mode", "2"], 0, "000020"),
    (["getAuthInfo", CAMERA, "--playback"], 0, "yes"),
    (["getAuthInfo", "X99999999"], 1, "320002"),
    (["getAuthInfo", CAMERA, "--access-token", "expired"], 1, "not renewed here"),
    (["RefreshToken"], 0, "at.fresh."),
    (["RefreshToken", "--refresh-token", "wrong"], 1, "--auth-addr"),
    (["getOneStreamToken"], 0, "st."),
    (["getOneStreamToken", "--mode", "1"], 1, "no stream tokens"),
    (["GetStreamTokenFast", "then", "GetStreamTokenFromQueue"], 0, "000010"),
    (["GetStreamTokenFromQueue"], 1, "Nothing was prefetched"),
    (["getRecordByAlarmID", CAMERA, "AL1001"], 0, "file-C10000001-1-01"),
    (["getDeviceFileBySerial", CAMERA], 0, "file-C10000001-1-03"),
    (["getDeviceFileBySerial", "F50000005"], 1, "320007"),
    (["getDeviceFileBySerial", SHARED, "--mode", "2"], 0, "file-S60000006-1-03"),
    (["getDeviceFileBySerialEx", CAMERA, "--end", "2024-01-02 01:30:00"], 0, "file-C10000001-1-01"),
    (["getCloudFileBySerial", CAMERA], 0, "file-C10000001-1-05"),
    (["getLocalFileBySerial", CAMERA], 0, "file-C10000001-1-06"),
    (["getCloudFileBySerialEX", CAMERA, "--date", "2024-01-02"], 0, "file-C10000001-1-04"),
    (["getCloudFileBySerialEX", CAMERA], 0, "none"),
    (["getCloudFileInfoBySerialEX", CAMERA], 0, "file-C10000001-1-05"),
    (["getCloudFileInfoBySerialEX", CAMERA, "--query", "[1]"], 1, "must be a JSON object"),
    (["GetCloudRecordFile", CAMERA], 0, "file-C10000001-1-05"),
    (["GetClouduploadUrl", CAMERA, "gate.jpg"], 0, "/upload/up-000001"),
    (["UploadCloudPicFile", "https://127.0.0.1:9/upload/x", __file__], 1, "100007"),
    (["ClearAllCache"], 0, "done"),
    (["expireServerInfo"], 0, "done"),
    (["ClearDeviceInfoCache"], 0, "done"),
    ([*CACHED, "IsSupportSeekPlayback", CAMERA], 0, "yes"),
    ([*CACHED, "IsSupportPlaybackSpeed", CAMERA, "5"], 0, "no"),
    ([*CACHED, "getDeviceRecord", CAMERA], 0, "device-public-key-C10000001"),
    ([*CACHED, "getDeviceRecordAlt", CAMERA], 0, "device-public-key-C10000001"),
    (["getDeviceRecord", CAMERA], 1, "fetch it first"),
    (["getUserId"], 0, "u-10001"),
    (["getPushSessionId"], 0, "push.000001"),
    (["getBWCheckInfo"], 0, "bwc.example.test:9000"),
    (["SetDeviceTkTokens", TK, "then", "getDeviceTkTokensByText", CAMERA], 0, "tk-d"),
    (["SetDeviceTkTokens", TK, "then", "getDeviceTkTokensByNumber", CAMERA, "1", "6"], 0, "tk-t"),
    (["setGlobalTkToken", "g", "then", "getGlobalTkToken"], 0, "g"),
    (["setPermissionMode", "2", "then", "getPermissionMode"], 0, "2"),
    ([*CACHED, "SetDevInfoCache", CAMERA], 0, "done"),
    (["SetDevInfoCache", CAMERA], 1, "fetch it first"),
    ([*CACHED, "getDevInfoCache", CAMERA], 0, "from the cache"),
    (["getDevDetailInfoSync", "V40000004", "then", "getDevInfoCache", "V40000004"], 1, "600001"),
    (["setCloseP2P", "1", "then", "isOpenP2P"], 0, "no"),
    (["getConfigInfo", "then", "isVTDUType1"], 0, "no"),
    (["RefreshSession", "--mode", "2"], 0, "se.fresh."),
    (["RefreshSession"], 1, "--mode 2"),
    (["RefreshSession", "wrong", "--mode", "2"], 1, "the server refused"),
    (["setDomain", "https://b", "https://c", "then", "getDomain", CAMERA], 0, "https://b"),
    (["setDomain", "", "https://c", "then", "getDomainByToken", "b2c." + SHARED, "--mode", "2"], 0, "https://c"),
    (["setAuthAddr", "https://a", "then", "getAuthAddr"], 0, "https://a"),
    (["setAppId", "an-app", "then", "getAppId"], 0, "an-app"),
    (["setAccessToken", "a-token", "then", "getAccessToken"], 0, "a-token"),
    (["setTokenExpireTime", "soon", "then", "getTokenExpireTime"], 0, "soon"),
    (["setRefreshToken", "r", "then", "getRefreshToken"], 0, "r"),
    (["setOpenID", "an-id", "then", "getOpenID"], 0, "an-id"),
    (["setScope", "a-scope", "then", "getScope"], 0, "a-scope"),
    (["setState", "a-state", "then", "getState"], 0, "a-state"),
    (["setCacheTime", "5", "then", "getCacheTime"], 0, "300"),
    (["setLogLevel", "9", "then", "getLogLevel"], 0, "9"),
    (["setDataUtf8", "2", "then", "isDataUtf8"], 0, "no"),
    (["setCloseBelongSerial", "1", "then", "isCloseBelongSerial"], 0, "yes"),
    (["SetB2CTokens", B2C, "then", "getB2CTokensByNumber", CAMERA], 0, "b2c-x"),
    (["SetB2CTokens", B2C, "then", "getB2CTokensByText", CAMERA], 0, "b2c-x"),
    (["SetB2CTokens", B2C, "then", "isB2CSharedToken", "b2c-x"], 0, "yes"),
    (["SetB2CTokens", B2C, "then", "isB2CSharedChannel", CAMERA], 0, "yes"),
    (["setSharedAccessToken", "s", "then", "getSharedAccessToken"], 0, "s"),
    (["setSessionId", "i", "then", "getSessionId"], 0, "i"),
]


def calls(arguments):
    """The operations of a chain, by name."""
    starts = [0, *[place + 1 for place, word in enumerate(arguments) if word == "then"]]
    return [arguments[start] for start in starts]


class EveryOperation(Case):
    def test_the_table_leaves_none_out(self):
        self.assertEqual({name for arguments, _, _ in ROWS for name in calls(arguments)},
                         {row["name"] for row in self.document("operations")})

    def test_for_people(self):
        for arguments, status, word in ROWS:
            with self.subTest(arguments=arguments):
                text = self.fails(status, *arguments) if status else self.succeeds(*arguments)
                self.assertIn(word, text)
                self.assertNotIn("Operation succeeded", text, "envelopes are for machines")
                if status == 0:
                    self.assertLessEqual(max(map(len, text.splitlines())), 100, text)

    def test_for_machines(self):
        for arguments, status, _ in ROWS:
            with self.subTest(arguments=arguments):
                document = self.document(*arguments, status=status)
                documents = document if isinstance(document, list) else [document]
                self.assertEqual([one["operation"] for one in documents], calls(arguments))
                self.assertEqual(documents[-1]["code"] == 0, status == 0)
                if status:
                    self.assertIsNone(documents[-1]["result"])


class Values(Case):
    """What the tool hands to operations when nothing is said, and what it makes of their results."""

    def test_what_is_sent_when_nothing_is_said(self):
        rows = [
            (["getDevList"], {"pageStart": "0", "pageSize": "20"}),
            (["getAlarmList", CAMERA], {"pageStart": "0", "pageSize": "20", "alarmType": "-1", "status": "2",
                                        "startTime": "2000-01-01 00:00:00", "endTime": "2037-12-31 23:59:59"}),
            (["getDeviceFileBySerial", CAMERA], {"cameraNo": "1", "startTime": "2000-01-01 00:00:00",
                                                 "endTime": "2037-12-31 23:59:59"}),
            (["getRecordByAlarmID", CAMERA, "AL1001"], {"channelNo": "1", "alarmId": "AL1001"}),
        ]
        for arguments, expected in rows:
            with self.subTest(arguments=arguments), Cloud() as cloud:
                self.succeeds(*arguments, "--b-domain", cloud.b_domain, "--access-token", cloud.account["accessToken"])
                sent = cloud.sent()[-1]
                self.assertEqual({name: sent[name] for name in expected}, expected)

    def test_a_search_by_day_begins_with_today(self):
        with Cloud() as cloud:
            self.succeeds("getCloudFileBySerialEX", CAMERA, "--b-domain", cloud.b_domain, "--access-token",
                          cloud.account["accessToken"])
            self.assertRegex(cloud.sent()[-1]["searchDate"], r"^\d{4}-\d\d-\d\d$")

    def test_machines_get_results_whole(self):
        response = self.document("getAlarmList", CAMERA)["result"]
        self.assertEqual((response["result"]["code"], len(response["result"]["data"])), ("200", 2))
        files = self.document("getDeviceFileBySerial", CAMERA)["result"]
        self.assertEqual(len(json.loads(files["strDeviceRecordList"])), len(files["files"]))

    def test_a_picture_is_uploaded_to_the_address_that_was_handed_out(self):
        with Cloud() as cloud, tempfile.NamedTemporaryFile("wb", suffix=".jpg") as file:
            file.write(b"\xff\xd8 gate")
            file.flush()
            whom = ["--b-domain", cloud.b_domain, "--access-token", cloud.account["accessToken"]]
            url = self.document("GetClouduploadUrl", CAMERA, "gate.jpg", *whom)["result"]["url"]
            self.assertEqual(self.succeeds("UploadCloudPicFile", url, file.name, *whom), "done\n")
            self.assertEqual([one["contentHex"] for one in cloud.control("GET", "/uploads")], [b"\xff\xd8 gate".hex()])

    def test_an_expired_session_is_renewed_with_the_option(self):
        with Cloud() as cloud:
            cloud.control("POST", "/expire", {"what": "session"})
            whom = ["--mode", "2", "--b-domain", cloud.b_domain, "--c-domain", cloud.c_domain,
                    "--access-token", cloud.account["accessToken"], "--session-id", cloud.account["sessionId"],
                    "--b2c-tokens", json.dumps(cloud.account["b2cTokens"])]
            self.fails(1, "getServerInfoSync", "b2c." + SHARED, *whom)
            whom += ["--refresh-session-id", cloud.account["refreshSessionId"]]
            self.assertEqual(cloud.control("DELETE", "/journal"), cloud.control("GET", "/journal") or {})
            self.succeeds("getServerInfoSync", "b2c." + SHARED, *whom)
            self.assertEqual([(one["domain"], one["path"]) for one in cloud.journal()],
                             [("C", "/v3/configurations/system/info"), ("C", "/v3/apigateway/login"),
                              ("C", "/v3/configurations/system/info")])

    def test_the_option_alone_sends_nothing(self):
        with Cloud() as cloud:
            self.succeeds("getCacheTime", "--refresh-session-id", "rs", "--mode", "2", "--b-domain", cloud.b_domain,
                          "--c-domain", cloud.c_domain)
            self.assertEqual(cloud.journal(), [])


class Terminal(Case):
    def run_on_a_terminal(self, *arguments):
        """Standard output, and what a terminal behind standard error got to see."""
        ours, theirs = pty.openpty()
        process = subprocess.Popen([*TOOL, *arguments], stdout=subprocess.PIPE, stderr=theirs, env=environment())
        os.close(theirs)
        seen = b""
        while True:
            try:
                piece = os.read(ours, 4096)
            except OSError:
                break
            if not piece:
                break
            seen += piece
        out = process.stdout.read()
        process.stdout.close()
        self.assertEqual(process.wait(timeout=60), 0)
        os.close(ours)
        return out.decode(), seen.decode()

    def test_prefetch_shows_a_bar_and_wipes_it(self):
        out, seen = self.run_on_a_terminal("prefetch")
        self.assertIn("24 of 24 details fetched", out)
        for step in ("0 of 24", "12 of 24", "24 of 24"):
            self.assertIn(step, seen)
        self.assertEqual([int(done) for done in re.findall(r"(\d+) of 24", seen)], list(range(25)))
        self.assertTrue(seen.endswith("\r\033[K"))
        self.assertNotIn("█", out)

    def test_no_bar_where_nobody_looks(self):
        self.assertEqual(run("prefetch").err, "")


if __name__ == "__main__":
    unittest.main()
