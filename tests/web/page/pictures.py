"""Takes the pictures of the documents anew: apt install pngquant; python3 tests/web/page/pictures.py"""
import base64
import subprocess

from browser import ROOT, Browser

FOLDER = ROOT / "docs/pictures"

# name, width, height, by night, example, octet that is pointed at, selector that is scrolled to
STATES = (
    ("message", 1200, 900, False, "Received", 13, None),
    ("text", 1200, 900, False, "A text", None, None),
    ("log-by-night", 1200, 1000, True, "Three parts in a log", 40, ".list"),
    ("cut-short", 1200, 900, False, "Cut short", None, ".message"),
    ("cell-broadcast", 1200, 900, False, "Cell broadcast", 0, None),
    ("telephone", 360, 780, True, "Turkish", 36, ".message"),
)


def main():
    FOLDER.mkdir(parents=True, exist_ok=True)
    for name, width, height, is_dark, example, octet, top in STATES:
        browser = Browser(width, height, is_dark)
        try:
            browser.open()
            browser.press(example)
            if octet is not None:
                browser.run("document.querySelectorAll('.octet')[arguments[0]].focus({ preventScroll: true })", octet)
            browser.run("document.activeElement.blur()")
            browser.command("Input.dispatchMouseEvent", type="mouseMoved", x=2, y=2)
            browser.run("document.querySelector(arguments[0] ?? 'body').scrollIntoView(); scrollBy(0, -12)", top)
            browser.run_async("setTimeout(arguments[0], 300)")
            picture = browser.command("Page.captureScreenshot", format="png")
            small = subprocess.run(["pngquant", "--strip", "--speed", "1", "-"], check=True, stdout=subprocess.PIPE,
                                   input=base64.b64decode(picture["data"]))
            (FOLDER / f"{name}.png").write_bytes(small.stdout)
        finally:
            browser.close()


if __name__ == "__main__":
    main()
