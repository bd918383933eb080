"""That everybody can read the page: no violation in axe-core, by day and by night, and all of it by keyboard."""
import unittest

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

from browser import ROOT, PageTest
from showing import CUT, HELLO

AXE = ROOT / "build/axe/node_modules/axe-core/axe.min.js"


class Access(PageTest):
    def violations(self):
        """What axe-core finds. It comes by the debugger, as the page lets no script in."""
        self.browser.command("Runtime.evaluate", expression=AXE.read_text(encoding="utf-8"))
        found = self.browser.run_async("""
            const done = arguments[0];
            axe.run({ resultTypes: ['violations'] }).then(
                ({ violations, passes }) => done([passes.length,
                    violations.map(({ id, nodes }) => `${id}: ${nodes.map(({ html }) => html).join(' ').slice(0, 400)}`)]),
                (error) => done([0, [String(error)]]))""")
        self.assertGreater(found[0], 10, found[1])
        return found[1]

    def test_axe_finds_nothing_in_the_empty_page(self):
        self.assertEqual(self.violations(), [])

    def test_axe_finds_nothing_in_any_example(self):
        for name in self.browser.texts(".examples button"):
            with self.subTest(name):
                self.browser.press(name)
                self.browser.run("document.querySelectorAll('details').forEach((details) => { details.open = true; })")
                self.assertEqual(self.violations(), [])

    def test_axe_finds_nothing_in_what_is_broken(self):
        self.browser.put(CUT)
        self.assertEqual(self.violations(), [])


    def test_axe_finds_nothing_in_a_text_that_scrolls(self):
        self.browser.put("A line\n" * 200)
        self.assertEqual(self.violations(), [])
        self.assertEqual(self.browser.one(".drawn-text").get_attribute("tabindex"), "0")


class AccessByNight(Access):
    is_dark = True

    def test_it_is_dark(self):
        self.assertLess(self.lightness("background-color"), 60)
        self.assertGreater(self.lightness("color"), 200)

    def lightness(self, property_name):
        colour = self.browser.run("return getComputedStyle(document.documentElement).getPropertyValue(arguments[0])",
                                  property_name)
        return sum(int(part) for part in colour[colour.index("(") + 1:-1].split(",")[:3]) / 3


class ByDay(AccessByNight):
    is_dark = False

    def test_it_is_dark(self):
        self.assertGreater(self.lightness("background-color"), 200)
        self.assertLess(self.lightness("color"), 60)

    test_axe_finds_nothing_in_the_empty_page = None
    test_axe_finds_nothing_in_any_example = None
    test_axe_finds_nothing_in_what_is_broken = None
    test_axe_finds_nothing_in_a_text_that_scrolls = None


class OnATelephone(Access):
    width, height = 360, 740


class ColoursOfTheSystem(PageTest):
    def setUp(self):
        super().setUp()
        self.emulate("active")
        self.browser.put(HELLO)

    def tearDown(self):
        self.emulate("none")
        super().tearDown()

    def emulate(self, forced):
        self.browser.command("Emulation.setEmulatedMedia", features=[{"name": "forced-colors", "value": forced}])

    def test_bits_that_belong_together_are_underlined(self):
        lines = self.browser.run("""
            const bits = document.querySelector('.field:not(.lit) .bits').querySelectorAll('.bit');
            return [...bits].map((bit) => getComputedStyle(bit).borderBottomStyle)""")
        self.assertEqual(lines, ["solid"] + ["none"] * 7)  # the extension of the service centre's type

    def test_fields_are_told_apart_by_lines(self):
        lines = self.browser.run("""
            return [...document.querySelectorAll('.octet')].slice(0, 3)
                .map((octet) => [getComputedStyle(octet).borderLeftStyle, getComputedStyle(octet).borderRightStyle])""")
        self.assertEqual(lines, [["solid", "none"], ["none", "none"], ["none", "none"]])

    def test_what_is_lit_has_one_colour(self):
        self.browser.all(".octet")[8].click()
        colours = self.browser.run("""
            const lit = document.querySelector('.field.lit');
            return [...new Set([lit, ...lit.querySelectorAll('*')].map((node) => getComputedStyle(node).color))]""")
        self.assertEqual(len(colours), 1, colours)


class OnPaper(PageTest):
    def tearDown(self):
        self.browser.command("Emulation.setEmulatedMedia", media="")
        super().tearDown()

    def test_nothing_to_click_on_is_printed_and_the_colours_are(self):
        self.browser.put(HELLO)
        self.browser.command("Emulation.setEmulatedMedia", media="print")
        self.assertEqual([text for text in self.browser.texts("button:not(.fields button)") if text], [])
        self.assertFalse(self.browser.is_shown("select"))
        self.assertEqual(self.browser.text(".bubble"), "Hello")
        octet = self.browser.all(".octet")[0]
        self.assertEqual(octet.value_of_css_property("print-color-adjust"), "exact")


class Keyboard(PageTest):
    def test_the_tabulator_reaches_everything_in_its_order(self):
        self.browser.press("Three parts in a log")
        self.browser.run("document.querySelector('#source').focus()")
        reached = []
        while len(reached) < 80 and "SUMMARY" not in reached:
            reached.append(self.browser.run("""
                const node = document.activeElement;
                return node.id || node.name || node.className || node.tagName"""))
            ActionChains(self.browser.driver).send_keys(Keys.TAB).perform()
        expected = ["source", "kind", "quiet", "chip", "scrolled", "SUMMARY"]
        places = [reached.index(name) for name in expected]
        self.assertEqual(places, sorted(places))
        self.assertEqual(len([name for name in reached if name.startswith("octet")]), 1)

    def test_a_message_is_chosen_by_keyboard(self):
        self.browser.press("Three parts in a log")
        self.browser.run("document.querySelector('.messages button').focus()")
        ActionChains(self.browser.driver).send_keys(Keys.ARROW_DOWN, Keys.ENTER).perform()
        self.assertEqual(self.browser.text(".bubble"), "Are you there?")


if __name__ == "__main__":
    unittest.main()
