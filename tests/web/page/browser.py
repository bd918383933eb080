"""Debian's Chromium with the page in it, from a disk."""
import json
import os
import shutil
import tempfile
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.support.ui import WebDriverWait

ROOT = Path(__file__).resolve().parents[3]
PAGE = Path(os.environ.get("QX_PAGE", ROOT / "build/web/qxpdu.html"))
LOCAL = ("file:", "data:", "blob:", "about:blank")
SECONDS = 20


class Browser:
    """A window with a page of its own, that tells what it asked of the network and what it complained of."""

    def __init__(self, width=1280, height=900, is_dark=False):
        self.profile = tempfile.mkdtemp(prefix="qxpdu-page-")
        # The page alone, so that nothing beside it could help.
        self.page = Path(self.profile, "alone", "qxpdu.html")
        self.page.parent.mkdir()
        shutil.copy(PAGE, self.page)
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for argument in (
            "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run",
            "--disable-background-networking", "--disable-component-update", "--disable-sync", "--hide-scrollbars",
            f"--user-data-dir={self.profile}/profile", f"--window-size={width},{height}",
        ):
            options.add_argument(argument)
        options.set_capability("goog:loggingPrefs", {"performance": "ALL", "browser": "ALL"})
        self.driver = webdriver.Chrome(options=options, service=Service("/usr/bin/chromedriver"))
        self.command("Emulation.setDeviceMetricsOverride", width=width, height=height, deviceScaleFactor=1,
                     mobile=width < 500)
        self.command("Emulation.setEmulatedMedia",
                     features=[{"name": "prefers-color-scheme", "value": "dark" if is_dark else "light"}])
        self.command("Browser.grantPermissions",
                     permissions=["clipboardReadWrite", "clipboardSanitizedWrite"])
        self.driver.get("about:blank")
        self.forget()

    def close(self):
        self.driver.quit()
        shutil.rmtree(self.profile, ignore_errors=True)

    def command(self, name, **arguments):
        return self.driver.execute_cdp_cmd(name, arguments)

    def open(self, behind=""):
        """Opens the page anew, with what stands behind the # of its address."""
        self.driver.get("about:blank")
        self.driver.get(self.page.as_uri() + behind)
        self.wait(lambda: self.one("[role=status]").text != "Loading …")

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    def run_async(self, script, *arguments):
        self.driver.set_script_timeout(SECONDS * 3)
        return self.driver.execute_async_script(script, *arguments)

    def wait(self, condition):
        return WebDriverWait(self.driver, SECONDS, 0.02).until(lambda _: condition())

    def all(self, selector):
        return self.driver.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return self.driver.find_element(By.CSS_SELECTOR, selector)

    def text(self, selector):
        return self.one(selector).text

    def texts(self, selector):
        return [node.text for node in self.all(selector)]

    def is_shown(self, selector):
        return any(node.is_displayed() for node in self.all(selector))

    def names(self, selector):
        """Of fields in the table, without what is said to screen readers alone."""
        return self.run("""
            return [...document.querySelectorAll(arguments[0])]
                .map((field) => field.querySelector('button').firstChild.textContent)""", selector)

    def put(self, text):
        """What pasting does: the text comes at once."""
        self.run("arguments[0].focus(); arguments[0].select()", self.one("#source"))
        self.command("Input.insertText", text=text)

    def paste(self, text):
        """Ctrl+V with a text of any length."""
        self.run("""
            const data = new DataTransfer();
            data.setData('text/plain', arguments[1]);
            arguments[0].dispatchEvent(new ClipboardEvent('paste',
                { clipboardData: data, bubbles: true, cancelable: true }))""", self.one("#source"), text)

    def press(self, label):
        """Clicks on the button that says so."""
        for button in self.all("button"):
            if button.is_displayed() and label in (button.text, button.get_attribute("aria-label")):
                button.click()
                return
        raise AssertionError(f"no button {label!r}")

    def choose(self, name, label):
        for option in self.one(f"select[name={name}]").find_elements(By.TAG_NAME, "option"):
            if option.text == label:
                option.click()
                return
        raise AssertionError(f"no {label!r} in {name}")

    def clipboard(self):
        return self.run_async("""
            navigator.clipboard.readText().then(arguments[0], (error) => arguments[0](String(error)))""")

    def forget(self):
        """What was logged till now, as by the window that Chromium begins with."""
        self.requests, self.complaints = [], []
        self.listen()
        self.requests, self.complaints = [], []

    def listen(self):
        """Takes in what was logged since."""
        for entry in self.driver.get_log("performance"):
            message = json.loads(entry["message"])["message"]
            if message["method"] == "Network.requestWillBeSent":
                self.requests.append(message["params"]["request"]["url"])
            if message["method"] == "Network.webSocketCreated":
                self.requests.append(message["params"]["url"])
        self.complaints += [entry["message"] for entry in self.driver.get_log("browser")]


class PageTest(unittest.TestCase):
    """Each test has the page before it; afterwards nothing was asked of any host, and nothing was complained of."""

    width, height, is_dark = 1280, 900, False

    @classmethod
    def setUpClass(cls):
        cls.browser = Browser(cls.width, cls.height, cls.is_dark)

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()

    def setUp(self):
        self.browser.forget()
        self.browser.open()

    def tearDown(self):
        self.browser.listen()
        foreign = [url for url in self.browser.requests if not url.startswith(LOCAL)]
        self.assertEqual(foreign, [])
        self.assertTrue(any(url.startswith("file:") for url in self.browser.requests), "nothing was logged")
        self.assertEqual(self.browser.complaints, [])
