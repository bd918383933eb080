"""The octet map: colours, bits, and that either half lights the other."""
import unittest

from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

from browser import PageTest
from showing import CUT, HELLO


class Octets(PageTest):
    def setUp(self):
        super().setUp()
        self.browser.put(HELLO)

    def lit(self):
        """The octets and the fields that are lit."""
        return (" ".join(self.browser.texts(".octet.lit")), self.browser.names(".field.lit"))

    def colour(self, octet):
        return self.browser.all(".octet")[octet].value_of_css_property("background-color")

    def test_every_octet_is_there_once(self):
        self.assertEqual("".join(self.browser.texts(".octet")), HELLO)
        self.assertEqual(self.browser.text(".map .bar .aside"), "32 octets, 24 without the service centre")

    def test_octets_of_a_field_have_a_colour(self):
        self.assertEqual(self.colour(9), self.colour(16))  # TP-OA
        self.assertNotEqual(self.colour(16), self.colour(17))  # TP-OA, TP-PID
        self.assertEqual(self.colour(19), self.colour(25))  # TP-SCTS
        self.assertNotEqual(self.colour(25), self.colour(26))  # TP-SCTS, TP-UDL

    def test_the_pointer_on_an_octet_lights_both(self):
        ActionChains(self.browser.driver).move_to_element(self.browser.all(".octet")[13]).perform()
        self.assertEqual(self.lit(), ("21 43 65 87 09 F1", ["TP-OA digits"]))
        self.assertIn("+12345678901", self.browser.text(".lens"))
        ActionChains(self.browser.driver).move_to_element(self.browser.one("h1")).perform()
        self.assertNotEqual(self.lit()[1], ["TP-OA digits"])

    def test_the_pointer_on_a_field_lights_both(self):
        ActionChains(self.browser.driver).move_to_element(self.browser.all(".field")[-1]).perform()
        self.assertEqual(self.lit(), ("C8 32 9B FD 06", ["TP-UD"]))

    def test_the_keyboard_walks_over_octets_and_lights_both(self):
        self.browser.run("document.querySelector('.octet[tabindex=\"0\"]').focus()")
        keys = ActionChains(self.browser.driver)
        keys.send_keys(Keys.HOME).perform()
        self.assertEqual(self.lit(), ("07", ["service centre length"]))
        ActionChains(self.browser.driver).send_keys(Keys.ARROW_RIGHT, Keys.ARROW_RIGHT).perform()
        self.assertEqual(self.lit(), ("21 43 65 87 09 21", ["service centre digits"]))
        ActionChains(self.browser.driver).send_keys(Keys.ARROW_DOWN).perform()  # 16 octets on
        self.assertEqual(self.lit(), ("00", ["TP-DCS"]))
        ActionChains(self.browser.driver).send_keys(Keys.ARROW_UP, Keys.ARROW_LEFT).perform()
        self.assertEqual(self.lit(), ("91", ["service centre type"]))
        ActionChains(self.browser.driver).send_keys(Keys.END).perform()
        self.assertEqual(self.lit(), ("C8 32 9B FD 06", ["TP-UD"]))
        focused = self.browser.driver.switch_to.active_element
        self.assertEqual(focused.get_attribute("aria-label"), "octet 31, 06, TP-UD")
        self.assertEqual(focused.get_attribute("aria-selected"), "true")

    def test_the_keyboard_walks_over_fields_and_lights_both(self):
        self.browser.run("document.querySelector('.fields button[tabindex=\"0\"]').focus()")
        ActionChains(self.browser.driver).send_keys(Keys.HOME, Keys.ARROW_DOWN, Keys.ARROW_DOWN).perform()
        self.assertEqual(self.lit(), ("21 43 65 87 09 21", ["service centre digits"]))

    def test_a_pointer_that_rests_lights_nothing_while_the_page_scrolls(self):
        focus = "document.querySelectorAll('.octet')[arguments[0]].focus({ preventScroll: true })"
        self.browser.run(focus, 18)  # which has its field in view from here on
        self.browser.run(focus, 17)
        ActionChains(self.browser.driver).move_to_element(self.browser.all(".octet")[5]).perform()
        self.assertEqual(self.lit(), ("21 43 65 87 09 21", ["service centre digits"]))
        self.browser.run(focus, 18)
        self.assertEqual(self.lit(), ("00", ["TP-DCS"]))
        self.browser.run("const all = document.querySelectorAll('.octet'); scrollBy(0, all[21].offsetTop - all[5].offsetTop)")
        self.browser.run_async("setTimeout(arguments[0], 300)")
        self.assertEqual(self.lit(), ("00", ["TP-DCS"]))
        ActionChains(self.browser.driver).move_by_offset(1, 0).perform()
        self.assertEqual(self.lit(), ("31", ["TP-SCTS day"]))

    def test_the_tabulator_stops_once_in_each_half(self):
        self.assertEqual(len(self.browser.all(".octet[tabindex='0']")), 1)
        self.assertEqual(len(self.browser.all(".fields button[tabindex='0']")), 1)

    def test_bits_are_drawn_in_the_lens(self):
        self.browser.all(".octet")[18].click()  # TP-DCS, 00
        self.assertEqual("".join(self.browser.texts(".lens .bit")), "00000000")
        self.browser.all(".octet")[8].click()  # the first octet, 04
        self.assertEqual("".join(self.browser.texts(".lens .bit")), "00000100")
        self.assertIn(".... .1..\nTP-MMS\nno more messages are waiting", self.browser.text(".lens .parts"))
        self.browser.all(".octet")[27].click()  # C8 32 9B FD 06, five septets
        self.assertEqual("".join(self.browser.texts(".lens .bit")), "1100100000110010100110111111110100000110")
        looks = self.browser.run("""
            return [...document.querySelectorAll('.lens .bit')].map((bit) => Number(bit.matches('.odd'))).join('')""")
        # From the lowest bit of each octet up, seven bits each: H, e, l, l, o, and five bits that fill up.
        self.assertEqual(looks, "10000000" "00111111" "11100000" "00001111" "11111000")

    def test_a_fault_stands_at_its_octet(self):
        self.browser.put(CUT)
        self.assertEqual(self.browser.text(".remark.fault b"), "octet 19 · TP-SCTS")
        self.assertEqual(self.browser.texts(".octet.broken"), ["21"])
        self.assertEqual(len(self.browser.all(".octet[data-kind=missing]")), 4)
        self.assertEqual(self.lit(), ("21 20 31", ["TP-SCTS"]))

    def test_what_is_missing_is_a_field_as_well(self):
        self.browser.put(CUT)
        self.browser.all(".octet")[0].click()
        ActionChains(self.browser.driver).send_keys(Keys.END).perform()
        self.assertEqual(self.lit(), ("·· ·· ·· ··", []))
        self.assertEqual(self.browser.text(".lens .name"), "4 octets missing\noctets 22 to 25")
        self.assertEqual(self.browser.text(".lens .sense"), self.browser.text(".message .fault"))
        focused = self.browser.driver.switch_to.active_element
        self.assertEqual(focused.get_attribute("aria-label"), "4 octets missing")
        self.assertEqual(len(self.browser.all(".fields button[tabindex='0']")), 1)

    def test_a_remark_lights_its_octet(self):
        self.browser.put(HELLO[:-4])
        remark = self.browser.one(".remarks .remark")
        self.assertEqual(remark.text, "octet 26 · TP-UDL TP-UDL announces 5, and 3 are there")
        self.assertEqual(self.browser.texts(".octet.remarked"), ["05"])
        self.browser.all(".octet")[0].click()
        remark.click()
        self.assertEqual(self.lit(), ("05", ["TP-UDL"]))
        self.assertEqual(self.browser.text(".field.lit .note"), "TP-UDL announces 5, and 3 are there")

    def test_octets_are_copied(self):
        self.browser.press("Copy octets")
        self.assertEqual(self.browser.clipboard(), HELLO)


class Narrow(PageTest):
    width, height = 360, 740

    def test_the_keyboard_walks_over_lines_of_eight(self):
        self.browser.put(HELLO)
        self.browser.run("document.querySelectorAll('.octet')[2].focus()")
        ActionChains(self.browser.driver).send_keys(Keys.ARROW_DOWN).perform()
        self.assertEqual(self.browser.run("return document.activeElement.dataset.offset"), "10")

    def test_nothing_is_wider_than_a_telephone(self):
        for name in self.browser.texts(".examples button"):
            with self.subTest(name):
                self.browser.press(name)
                self.browser.run("document.querySelectorAll('details').forEach((details) => { details.open = true; })")
                self.assertEqual(self.browser.run("return document.documentElement.scrollWidth"), 360)
                wide = self.browser.run("""
                    return [...document.querySelectorAll('main .panel, main table, .octets, .bubble, .lens')]
                        .filter((node) => node.offsetParent && node.getBoundingClientRect().right > 360)
                        .map((node) => node.className)""")
                self.assertEqual(wide, [])


if __name__ == "__main__":
    unittest.main()
