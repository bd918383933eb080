"""A PostgreSQL of one's own: a private copy of the server with the extension in it, run by a user without rights."""
import os
import pathlib
import shutil
import subprocess
import tempfile
import time

INSTALLED = pathlib.Path("/usr/lib/postgresql/15")
SHARED = pathlib.Path("/usr/share/postgresql/15")
PSQL = INSTALLED / "bin/psql"
# initdb refuses root.
UNPRIVILEGED = ["setpriv", "--reuid=nobody", "--regid=nogroup", "--clear-groups"] if os.getuid() == 0 else []


class Installation:
    """The server looks for its files from where it stands, so a copy of two programs and links to the rest do."""

    def __init__(self, extension, source, libraries):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="qx_postgresql_", dir="/tmp"))
        self.folder.chmod(0o755)
        self.bin, self.lib = self.folder / "usr/lib/postgresql/15/bin", self.folder / "usr/lib/postgresql/15/lib"
        shared = self.folder / "usr/share/postgresql/15"
        for path in (self.bin, self.lib, shared / "extension"):
            path.mkdir(parents=True)
        for name in ("postgres", "initdb", "pg_ctl"):
            shutil.copy(INSTALLED / "bin" / name, self.bin)
        (self.bin / "psql").symlink_to(PSQL)
        for path in (INSTALLED / "lib").iterdir():
            (self.lib / path.name).symlink_to(path)
        for path in SHARED.iterdir():
            if path.name != "extension":
                (shared / path.name).symlink_to(path)
        for path in (SHARED / "extension").iterdir():
            if not path.name.startswith("qx_messages"):
                (shared / "extension" / path.name).symlink_to(path)
        for path in (source / "qx_messages.control", source / "qx_messages--1.0.sql"):
            shutil.copy(path, shared / "extension")
        (self.lib / "qx_messages.so").unlink(missing_ok=True)
        for path in (extension, *libraries):
            shutil.copy(path, self.lib)
        if UNPRIVILEGED:
            shutil.chown(self.folder, "nobody", "nogroup")

    def remove(self):
        shutil.rmtree(self.folder)


class Server:
    """One server with its data, on a socket in its folder; with a port, on the loopback as well."""

    def __init__(self, installation, name="data", port=5432, listens=False, settings=()):
        self.installation, self.port = installation, port
        self.data = installation.folder / name
        self.environment = {**os.environ, "LD_LIBRARY_PATH": str(installation.lib), "LC_ALL": "C.UTF-8"}
        self.settings = [f"listen_addresses={'127.0.0.1' if listens else ''}", f"unix_socket_directories={installation.folder}",
                         f"port={port}", "fsync=off", *settings]
        self.run("initdb", "-D", self.data, "-U", "postgres", "-A", "trust", "-E", "UTF8", "--no-sync")
        self.process = None

    def run(self, program, *arguments):
        subprocess.run([*UNPRIVILEGED, self.installation.bin / program, *arguments], check=True, stdout=subprocess.DEVNULL,
                       cwd=self.installation.folder, env=self.environment, timeout=120)

    def start(self):
        settings = [word for setting in self.settings for word in ("-c", setting)]
        with open(self.installation.folder / f"{self.data.name}.log", "ab") as log:
            self.process = subprocess.Popen([*UNPRIVILEGED, self.installation.bin / "postgres", "-D", self.data, *settings],
                                            cwd=self.installation.folder, env=self.environment, stdout=log, stderr=log)
        for _ in range(300):
            if self.psql("SELECT 1").returncode == 0:
                return
            time.sleep(0.1)
        raise SystemExit("the server does not start: " + (self.installation.folder / f"{self.data.name}.log").read_text())

    def stop(self):
        if self.process:
            self.process.send_signal(2)  # ends the sessions
            self.process.wait(timeout=60)
            self.process = None

    def psql(self, script, database="postgres"):
        """Runs the statements in one session; what they give, and their errors, in order."""
        return subprocess.run([PSQL, "-X", "-A", "-t", "-q", "-h", self.installation.folder, "-p", str(self.port), "-U", "postgres",
                               "-d", database, "-v", "VERBOSITY=terse", "-P", "null=NULL", "-f", "-"], input=script, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, text=True, encoding="utf-8", errors="replace", env=self.environment, timeout=600)

    def rows(self, script, database="postgres"):
        return self.psql(script, database).stdout.rstrip("\n")
