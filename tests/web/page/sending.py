"""Texts: counted, and made to PDUs."""
import unittest

from selenium.webdriver.common.keys import Keys

from browser import PageTest

PRICE = "It’s 5 € each"


class Counter(PageTest):
    def test_alphabet_size_and_room_are_told(self):
        self.browser.put("hello")
        self.assertEqual(self.browser.text(".sum .parts"), "1 message")
        self.assertEqual(self.browser.texts(".how span"),
                         ["GSM 7-bit", "5 septets", "155 more fit", "5 octets of user data"])

    def test_short_words_of_hexadecimal_letters_are_texts(self):
        for word in ("Bad", "face", "deaf dad"):
            with self.subTest(word):
                self.browser.put(word)
                self.assertEqual(self.browser.text(".drawn-text"), word)

    def test_characters_that_force_ucs2_are_marked_and_named(self):
        self.browser.put(PRICE)
        self.assertEqual(self.browser.texts(".how span")[:2], ["UCS2", "13 UCS2 units"])
        self.assertEqual(self.browser.texts(".drawn-text mark.forces_ucs2"), ["’"])
        self.browser.wait(lambda: "RIGHT SINGLE QUOTATION MARK" in self.browser.text(".costs"))
        self.assertEqual(self.browser.texts(".costs tbody tr > *"),
                         ["’ U+2019", "RIGHT SINGLE QUOTATION MARK", "makes it UCS2", "3"])

    def test_what_is_cheaper_can_be_used(self):
        self.browser.put(PRICE)
        self.assertEqual(self.browser.text(".cheaper .what"), "Near characters")
        self.assertEqual(self.browser.texts(".cheaper .pair"), ["’ → '"])
        self.assertEqual(self.browser.text(".cheaper .saves"), "13 octets less")
        self.browser.press("Use: Near characters")
        self.assertEqual(self.browser.texts(".how span")[:2], ["GSM 7-bit", "14 septets"])
        self.assertTrue(self.browser.one("[name=replace]").is_selected())
        self.assertEqual(self.browser.texts(".drawn-text mark.two_septets"), ["€"])
        self.browser.press("Do not use: Near characters")
        self.assertEqual(self.browser.texts(".how span")[0], "UCS2")

    def test_a_language_that_is_cheaper_can_be_used(self):
        self.browser.put("Yarın şubemizden alınız")
        self.browser.press("Use: Tables of Turkish")
        self.assertEqual(self.browser.texts(".how span")[:3], ["GSM 7-bit", "table of Turkish", "23 septets"])
        self.assertTrue(self.browser.one("input[value=tr]").is_selected())
        self.assertEqual(self.browser.texts(".drawn-text mark.needs_table"), ["ı", "ş", "ı", "ı"])

    def test_breaks_stand_where_parts_begin(self):
        self.browser.put("x" * 153 + "y" * 20)
        self.assertEqual(self.browser.text(".sum .parts"), "2 messages")
        self.assertEqual(self.browser.one(".break").get_attribute("title"), "part 2 begins")
        before = self.browser.run("return document.querySelector('.break').previousSibling.textContent")
        self.assertEqual(before, "x" * 153)
        widths = self.browser.run("return [...document.querySelectorAll('.meter i')].map((bar) => parseFloat(bar.style.width))")
        self.assertEqual(widths[0], 100)
        self.assertAlmostEqual(widths[1], 100 * 20 / 153, delta=0.1)

    def test_too_long_a_text_says_so(self):
        self.browser.put("Ж" * 17100)
        self.assertIn("255 at most", self.browser.text(".counter .fault"))
        self.assertEqual(self.browser.text(".sending > .fault"), "")
        self.assertTrue(self.browser.text(".drawn-text").endswith("… and 13,100 more characters"))


class Sending(PageTest):
    def pdus(self):
        return [digits.replace(" ", "") for digits in self.browser.texts(".pdus .digits")]

    def test_the_pdu_follows_the_choices(self):
        self.browser.put("hello")
        self.browser.one("[name=to]").send_keys("+4179123")
        self.assertEqual(self.pdus(), ["0001000791149721F3000005E8329BFD06"])
        self.assertEqual(self.browser.texts(".pdus .command"), ["AT+CMGS=16"])
        self.browser.choose("class", "0: shown at once")
        self.assertEqual(self.pdus(), ["0001000791149721F3001005E8329BFD06"])
        self.browser.choose("validity", "1 hour")
        self.assertEqual(self.pdus(), ["0011000791149721F300100B05E8329BFD06"])
        self.browser.one("[name=report]").click()
        self.assertEqual(self.pdus(), ["0031000791149721F300100B05E8329BFD06"])
        self.browser.choose("alphabet", "UCS2")
        self.assertEqual(self.pdus(), ["0031000791149721F300180B0A00680065006C006C006F"])
        self.browser.one("[name=smsc]").send_keys("+41791")
        self.assertEqual(self.pdus(), ["0491149" "7F1" "31000791149721F300180B0A00680065006C006C006F"])
        self.assertEqual(self.browser.texts(".pdus .command"), ["AT+CMGS=22"])

    def test_a_field_keeps_the_focus_while_somebody_types_into_it(self):
        self.browser.put("hello")
        self.browser.one("[name=to]").send_keys("+41")
        self.assertEqual(self.browser.run("return document.activeElement.name"), "to")

    def test_commands_are_copied(self):
        self.browser.put("hello")
        self.browser.one("[name=to]").send_keys("+4179123")
        self.browser.press("Copy AT commands")
        self.assertEqual(self.browser.clipboard().replace("\r\n", "\n").replace("\r", "\n"),
                         "AT+CMGF=0\nAT+CMGS=16\n0001000791149721F3000005E8329BFD06\x1a")
        self.assertEqual(self.browser.text(".sending .bar .quiet"), "Copied")
        self.assertEqual(self.browser.texts("body > [aria-live]"), ["Copied"])
        self.browser.wait(lambda: self.browser.text(".sending .bar .quiet") == "Copy AT commands")
        self.assertEqual(self.browser.texts("body > [aria-live]"), [""])
        self.assertEqual(self.browser.one(".sending .bar .quiet").get_attribute("aria-label"), "Copy AT commands")

    def test_the_octets_of_any_part_are_shown(self):
        self.browser.put("x" * 161)
        first, second = self.pdus()
        self.assertEqual("".join(self.browser.texts(".octet")), first)
        self.browser.press("Show octets")
        self.assertEqual("".join(self.browser.texts(".octet")), second)
        self.assertEqual(self.browser.run("return document.activeElement.textContent"), "Octets shown below")

    def test_a_wrong_number_says_so(self):
        self.browser.put("hello")
        number, centre = self.browser.one("[name=to]"), self.browser.one("[name=smsc]")
        number.send_keys("12x")
        fault = self.browser.one(".sending > .fault")
        self.assertEqual(fault.text, "To: character 3, 'x', is no digit of a number")
        self.assertEqual(fault.get_attribute("aria-live"), "polite")
        self.assertEqual(number.get_attribute("aria-invalid"), "true")
        self.assertEqual(number.get_attribute("aria-describedby"), fault.get_attribute("id"))
        self.assertEqual(centre.get_attribute("aria-invalid"), "false")
        self.assertFalse(self.browser.is_shown(".map"))
        self.assertFalse(self.browser.is_shown(".sending .bar .quiet"))
        number.send_keys(Keys.BACKSPACE)
        self.assertEqual(fault.text, "")
        self.assertEqual(number.get_attribute("aria-invalid"), "false")
        self.assertIsNone(number.get_attribute("aria-describedby"))
        self.assertTrue(self.browser.is_shown(".sending .bar .quiet"))
        centre.send_keys("+")
        self.assertEqual(fault.text, "Service centre: a number without digits")
        self.assertEqual(centre.get_attribute("aria-invalid"), "true")

    def test_a_language_is_used_in_the_pdu(self):
        self.browser.put("Görüşmek üzere, iyi akşamlar")
        self.browser.one("[name=to]").send_keys("+4179123")
        self.browser.one("input[value=tr]").click()
        self.assertEqual(self.pdus(), ["0041000791149721F30000210325010138F2E5FE4EBBBC06F9F5657999054AE7D3A0F0BA136EB3C372"])


if __name__ == "__main__":
    unittest.main()
