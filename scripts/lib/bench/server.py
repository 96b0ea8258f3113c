"""The server that requests are measured against: nginx on ports of its own, over HTTP and HTTPS, returning one body."""

import contextlib
import os
import shutil
import socket
import subprocess
import time

from . import places

CONFIGURATION = """
daemon off;
worker_processes 1;
pid {folder}/nginx.pid;
error_log {folder}/error.log;
events {{ worker_connections 1024; }}
http {{
    log_format sizes '$request_method $uri $request_length $content_length';
    access_log {folder}/access.log sizes;
    client_body_temp_path {folder}/body; proxy_temp_path {folder}/proxy; fastcgi_temp_path {folder}/fastcgi;
    uwsgi_temp_path {folder}/uwsgi; scgi_temp_path {folder}/scgi;
    server {{
        listen 127.0.0.1:{http};
        listen 127.0.0.1:{https} ssl;
        ssl_certificate {folder}/certificate.pem;
        ssl_certificate_key {folder}/key.pem;
        default_type application/json;
        location / {{
{pieces}
            return 200 "{names}";
        }}
    }}
}}
"""
LONGEST_PIECE = 1500  # nginx takes no words of more than 4 KB


def free_port():
    with socket.socket() as listener:
        listener.bind(("127.0.0.1", 0))
        return listener.getsockname()[1]


def quoted(text):
    return "'" + text.replace("\\", "\\\\").replace("'", "\\'") + "'"


def configuration(folder, http, https, body):
    pieces = [body[at:at + LONGEST_PIECE] for at in range(0, len(body), LONGEST_PIECE)]
    settings = [f"            set $piece{number} {quoted(piece)};" for number, piece in enumerate(pieces)]
    names = "".join(f"${{piece{number}}}" for number in range(len(pieces)))
    return CONFIGURATION.format(folder=folder, http=http, https=https, pieces="\n".join(settings), names=names)


def make_certificate(folder):
    """An ECDSA certificate, as servers have them; clients do not check it."""
    subprocess.run(["openssl", "req", "-x509", "-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes",
                    "-keyout", folder / "key.pem", "-out", folder / "certificate.pem", "-days", "3650",
                    "-subj", "/CN=localhost"], check=True, capture_output=True)


def wait_for(port, process):
    for _ in range(200):
        with contextlib.suppress(OSError), socket.create_connection(("127.0.0.1", port), timeout=1):
            return
        if process.poll() is not None:
            break
        time.sleep(0.05)
    raise RuntimeError("nginx does not listen: see build/bench/nginx/error.log")


@contextlib.contextmanager
def running(body):
    """Runs the server; yields the environment that names it."""
    folder = places.WORK / "nginx"
    folder.mkdir(parents=True, exist_ok=True)
    make_certificate(folder)
    http, https = free_port(), free_port()
    (folder / "nginx.conf").write_text(configuration(folder, http, https, body))
    (folder / "access.log").write_text("")
    program = shutil.which("nginx", path=os.environ.get("PATH", "") + ":/usr/sbin")
    process = subprocess.Popen([program, "-p", folder, "-c", folder / "nginx.conf", "-e", folder / "error.log"],
                               stdin=subprocess.DEVNULL)
    try:
        wait_for(http, process)
        yield {"VANTIX_BENCH_HTTP": f"http://127.0.0.1:{http}", "VANTIX_BENCH_HTTPS": f"https://127.0.0.1:{https}"}
    finally:
        process.terminate()
        process.wait(timeout=30)


def last_request():
    """The last request that the server received: method, path, bytes of the head, length of the body."""
    return (places.WORK / "nginx" / "access.log").read_text().splitlines()[-1].split()
