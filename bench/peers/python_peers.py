"""The form post of the jobs with Python's urllib and requests: a new connection each, certificates unchecked.

    python_peers.py ROUNDS        the server is that of VANTIX_BENCH_HTTP and VANTIX_BENCH_HTTPS

Prints the seconds of each round as JSON, by name.
"""
import json
import os
import ssl
import sys
import time
import urllib.request
import warnings

import requests

PATH = "/api/lapp/video/by/id"
FORM = ("accessToken=at.4r7v0c2c8pqn6mzk1x9h5d3b-6tfu2w8y4j-1s0aq7e-lkn5vbxdr&alarmId=2601020304055f3c8a71d2e94b06&"
        "channelNo=1&clientType=19&clientVersion=v5.25.0&deviceSerial=C10000000&featureCode="
        "0123456789abcdef0123456789abcdef&netType=UNKNOWN&osVersion=wins&sdkVersion=v5.25.0.20260515").encode()
TYPE = {"Content-Type": "application/x-www-form-urlencoded"}


def by_urllib(address):
    context = ssl._create_unverified_context() if address.startswith("https") else None
    request = urllib.request.Request(address + PATH, data=FORM, headers=TYPE)
    with urllib.request.urlopen(request, context=context) as response:
        return response.read()


def by_requests(address):
    return requests.post(address + PATH, data=FORM, headers=TYPE, verify=False).content


def seconds_of(fetch, address, rounds):
    taken = []
    for _ in range(rounds):
        start = time.perf_counter()
        if not fetch(address):
            raise RuntimeError(f"{fetch.__name__} got no body")
        taken.append(time.perf_counter() - start)
    return taken


def main(rounds):
    warnings.simplefilter("ignore")  # about certificates
    result = {}
    for way, variable in (("plain", "VANTIX_BENCH_HTTP"), ("tls", "VANTIX_BENCH_HTTPS")):
        for name, fetch in (("Python urllib", by_urllib), ("Python requests", by_requests)):
            seconds_of(fetch, os.environ[variable], 3)
            result[f"peer/request/{way}/{name}"] = seconds_of(fetch, os.environ[variable], int(rounds))
    print(json.dumps(result))


if __name__ == "__main__":
    main(*sys.argv[1:])
