"""What the page shows of what is pasted."""
import unittest

from browser import PageTest

HELLO = "0791214365870921040B912143658709F100002120312143658005C8329BFD06"
# TP-UDL announces 17 septets of a second part of three, and 14 are there.
SHORT = "41FF04F121430000110500032A0302906536FB0DBA03"
# The timestamp is cut after its third octet.
CUT = "0791214365870921040B912143658709F10000212031"
LOG = """AT+CMGL=4
+CMGL: 1,1,,40
00440B912143658709F100006211504100004017050003070302DE66101D2D2F9741F0B09C3E678100
+CMGL: 2,1,,24
00040B912143658709F10000621150410000400553F45B4E07
+CMGL: 3,1,,34
00440B912143658709F10000621150410000401105000307030182A076793E0F9FCB20
+CMGL: 4,1,,36
00440B912143658709F100006211504100004013050003070303DE753AE86D06BDE5E4B21C
OK
"""
PAGE = "403211120111C8329BFD06"


class Messages(PageTest):
    def test_typing_a_pdu_shows_the_message_as_it_comes(self):
        self.browser.one("#source").send_keys(HELLO[:-2])
        self.assertEqual(self.browser.text(".bubble"), "Hell")
        self.browser.one("#source").send_keys(HELLO[-2:])
        self.assertEqual(self.browser.text(".message h2"), "From +12345678901")
        self.assertEqual(self.browser.text(".message time"), "13 Feb 2012, 12:34:56 +02:00")
        self.assertEqual(self.browser.text(".bubble"), "Hello")
        self.assertEqual(self.browser.texts(".facts div"), ["Alphabet\nGSM 7-bit", "Service centre\n+123456789012"])
        self.assertEqual(self.browser.text("[role=status]"), "1 message")

    def test_a_pdu_without_service_centre_and_with_blanks_is_one_too(self):
        self.browser.put("04 0B 91 21 43 65 87 09 F1 00 00 21 20 31 21 43 65 80 05 C8 32 9B FD 06")
        self.assertEqual(self.browser.text(".bubble"), "Hello")
        self.assertNotIn("Service centre", self.browser.text(".facts"))

    def test_several_pdus_are_a_list_of_messages(self):
        self.browser.put(f"{HELLO}\n{CUT}\n")
        self.assertEqual(self.browser.text("[role=status]"), "2 messages, 1 broken")
        self.assertEqual(self.browser.texts(".messages .who"), ["+12345678901"])
        self.assertEqual(len(self.browser.all(".messages li")), 2)
        self.browser.all(".messages button")[1].click()
        self.assertEqual(self.browser.text(".message h2"), "This is no whole PDU")

    def test_a_pasted_log_has_its_parts_joined(self):
        self.browser.put(LOG)
        self.assertEqual(self.browser.texts(".messages .summary"), ["A message of three parts, out of order", "Short"])
        self.assertEqual(self.browser.text(".bubble"), "A message of three parts, out of order")
        self.assertEqual(self.browser.texts(".message .tabs button"), ["Part 1, line 7", "Part 2, line 3", "Part 3, line 9"])
        self.assertEqual(self.browser.texts(".octet")[-9:], ["82", "A0", "76", "79", "3E", "0F", "9F", "CB", "20"])
        self.browser.press("Part 2, line 3")
        self.assertEqual(self.browser.texts(".octet")[-4:], ["3E", "67", "81", "00"])
        self.assertEqual(self.browser.text(".bubble"), "A message of three parts, out of order")

    def test_what_was_chosen_stays_while_the_log_is_edited(self):
        self.browser.put(LOG)
        first = self.browser.one(".messages li")
        self.browser.press("Part 2, line 3")
        self.browser.one("#source").send_keys("\n")
        self.assertEqual(self.browser.text(".message [aria-pressed=true]"), "Part 2, line 3")
        self.browser.all(".messages button")[1].click()
        self.browser.one("#source").send_keys("\n" + HELLO)
        self.assertEqual(self.browser.text(".bubble"), "Short")
        self.assertEqual(self.browser.texts(".messages [aria-pressed=true] .summary"), ["Short"])
        self.assertEqual(self.browser.one(".messages li"), first)

    def test_a_part_that_lacks_is_named_where_it_lacks(self):
        lines = LOG.splitlines()
        self.browser.put("\n".join(lines[:1] + lines[3:]))
        self.browser.wait(lambda: self.browser.is_shown(".messages"))
        self.assertEqual(self.browser.texts(".messages .tag"), ["2 of 3 parts"])
        message = [item for item in self.browser.all(".messages button") if "2 of 3 parts" in item.text][0]
        message.click()
        self.assertEqual(self.browser.text(".gap"), "part 2 is missing")
        self.assertEqual(self.browser.text(".bubble").split("part 2 is missing")[0].strip(), "A message")

    def test_a_page_of_cell_broadcast_is_recognised(self):
        self.browser.put(PAGE)
        self.assertEqual(self.browser.text(".message h2"), "CMAS presidential, EU-Alert level 1")
        self.assertEqual(self.browser.text(".bubble"), "Hello")
        self.assertIn("Language\nen", self.browser.texts(".facts div"))
        self.assertEqual(self.browser.names(".field")[:2], ["serial number", "message identifier"])

    def test_as_what_it_is_read_can_be_chosen(self):
        self.browser.put(PAGE)
        self.browser.choose("kind", "text to send")
        self.assertEqual(self.browser.text(".sum .parts"), "1 message")
        self.assertEqual(self.browser.text(".drawn-text"), PAGE)
        self.browser.choose("kind", "cell broadcast")
        self.assertEqual(self.browser.text(".bubble"), "Hello")

    def test_direction_and_service_centre_can_be_chosen(self):
        self.browser.put(SHORT)
        self.assertFalse(self.browser.is_shown("select[name=direction]"))
        self.browser.choose("kind", "PDUs")
        self.browser.choose("centre", "none")
        self.assertIn("Hello w", self.browser.text(".bubble"))
        self.assertEqual(self.browser.text(".message .tag"), "SMS-SUBMIT")
        self.browser.choose("direction", "to the mobile")
        self.assertNotEqual(self.browser.text(".message .tag") if self.browser.all(".message .tag") else "", "SMS-SUBMIT")

    def test_a_status_report_says_what_became_of_the_message(self):
        self.browser.press("Status report")
        self.assertEqual(self.browser.text(".message h2"), "About +12025550142")
        self.assertEqual(self.browser.text(".bubble"), "received by the recipient (completed)")

    def test_damaged_names_of_characters_leave_the_rest_and_say_so(self):
        page, block = self.browser.page.read_text(encoding="utf-8"), '<script type="text/plain" id="names">'
        begin = page.index(block) + len(block)
        damaged = self.browser.page.with_name("damaged.html")
        damaged.write_text(page[:begin] + page[begin + 1000:], encoding="utf-8")
        self.browser.driver.get(damaged.as_uri())
        self.browser.wait(lambda: self.browser.text("[role=status]") != "Loading …")
        self.browser.put("Well €")
        self.browser.wait(lambda: "names of its characters could not be read" in self.browser.text("[role=status]"))
        self.assertEqual(self.browser.text(".drawn-text"), "Well €")

    def test_nothing_is_shown_as_markup(self):
        # as a text, as that of a message and, shorter, as the name of its sender
        mark = "<img src=x onerror=document.title='fired'>"
        self.browser.put(mark)
        self.assertEqual(self.browser.text(".drawn-text"), mark)
        self.browser.choose("kind", "PDUs")
        self.assertEqual(self.browser.text("[role=status]"), "No PDU stands in this.")
        self.browser.choose("kind", "what it is")
        self.browser.press("Copy")
        self.browser.put(self.browser.clipboard())
        self.browser.wait(lambda: self.browser.is_shown(".bubble"))
        self.assertEqual(self.browser.text(".bubble"), mark)
        self.browser.put("000414D0BC74FB0C9ACBC73DBC0F00002120312143658005C8329BFD06")
        self.assertEqual(self.browser.text(".message h2"), "From <img src=x>")
        self.assertEqual(self.browser.all("img"), [])
        self.assertNotEqual(self.browser.run("return document.title"), "fired")

    def test_what_holds_no_pdu_says_so(self):
        self.browser.put("AT+CMGF=0\r\nOK\r\nAT+CSQ\r\n+CSQ: 12,0\r\n")
        self.assertEqual(self.browser.text("[role=status]"), "No PDU stands in this.")
        self.assertFalse(self.browser.is_shown(".map"))

    def test_talk_around_a_pdu_is_passed_over(self):
        self.browser.put(f"Hi, my modem gives me this:\n{HELLO}\nWhat does it say?")
        self.assertEqual(self.browser.text("[role=status]"), "1 message, 2 lines passed over")
        self.assertEqual(self.browser.text(".bubble"), "Hello")

    def test_a_pdu_is_shown_whatever_stands_beside_it(self):
        for text in (f"{HELLO}\nOK", f"OK\n\n{HELLO}\n", f"AT+CMGR=1\n{HELLO}\nOK", f"please read {HELLO} for me",
                     f"{HELLO[:30]}\n{HELLO[30:]}\n"):
            self.browser.put(text)
            self.assertEqual(self.browser.text("[role=status]"), "1 message", text)
            self.assertEqual(self.browser.text(".bubble"), "Hello")

    def test_a_damaged_pdu_has_its_map_whatever_stands_beside_it(self):
        for text in (f"{CUT}\nOK", f"hello\n{CUT}", f"+CMGR: 0,,25\n{CUT}\nOK", f"please read {CUT} for me"):
            self.browser.put(text)
            self.assertEqual(self.browser.text(".message h2"), "This is no whole PDU", text)
            self.assertEqual("".join(self.browser.texts(".octet:not([data-kind=missing])")), CUT, text)

    def test_half_an_octet_leaves_the_map_of_what_is_broken(self):
        self.browser.put(CUT[:25])
        self.assertEqual("".join(self.browser.texts(".octet:not([data-kind=missing])")), CUT[:24])

    def test_half_an_octet_at_the_end_leaves_the_map(self):
        self.browser.put(HELLO[:-1])
        self.assertEqual("".join(self.browser.texts(".octet")), HELLO[:-2])
        self.assertEqual(self.browser.text(".bubble"), "Hell")

    def test_a_part_that_came_before_says_so(self):
        self.browser.put(LOG + "\n".join(LOG.splitlines()[1:3]))
        self.assertEqual(self.browser.texts(".messages .tag"), ["3 parts", "came before, line 3"])

    def test_a_free_record_of_a_sim_says_so(self):
        self.browser.put("FF" * 176)
        self.assertEqual(self.browser.text(".message h2"), "A free record of a SIM")

    def test_a_file_is_opened_where_it_is_dropped(self):
        self.drop(LOG)
        self.browser.wait(lambda: self.browser.text("[role=status]") == "2 messages")
        self.drop("0" * ((1 << 20) + 1))
        self.browser.wait(lambda: "one is the most this page takes" in self.browser.text("[role=status]"))

    def drop(self, text):
        self.browser.run("""
            const data = new DataTransfer();
            data.items.add(new File([arguments[0]], 'modem.log', { type: 'text/plain' }));
            document.body.dispatchEvent(new DragEvent('drop', { dataTransfer: data, bubbles: true, cancelable: true }))""", text)

    def test_a_file_is_opened_by_its_button(self):
        path = self.browser.page.parent / "modem.log"
        path.write_text(LOG, encoding="utf-8")
        self.browser.one("input[type=file]").send_keys(str(path))
        self.browser.wait(lambda: self.browser.text("[role=status]") == "2 messages")

    def test_an_example_is_read_as_what_it_is(self):
        self.browser.choose("kind", "cell broadcast")
        self.browser.press("Received")
        self.assertEqual(self.browser.text(".message h2"), "From Railway")
        self.assertEqual(self.browser.one("select[name=kind]").get_attribute("value"), "auto")

    def test_clear_leaves_nothing(self):
        self.browser.put(HELLO)
        self.browser.choose("kind", "cell broadcast")
        self.browser.press("Clear")
        self.assertEqual(self.browser.one("select[name=kind]").get_attribute("value"), "auto")
        self.assertEqual(self.browser.one("#source").get_attribute("value"), "")
        self.assertFalse(self.browser.is_shown(".message"))
        self.assertFalse(self.browser.is_shown(".map"))


class Readings(PageTest):
    def test_what_libqx_encoding_reads_differently_stands_beside_the_standard(self):
        self.browser.put(SHORT)
        self.browser.choose("kind", "PDUs")
        self.browser.choose("centre", "none")
        self.assertEqual(self.browser.texts(".differences th")[:3], ["Member", "by the standard", "by libQX_Encoding"])
        self.assertEqual(self.browser.texts(".differences tbody tr > *"), ["m_Text", "Hello w", "Hello w@@@"])
        self.assertEqual(self.browser.texts(".fields .note.host"), ["by libQX_Encoding m_Text: Hello w@@@"])
        self.assertEqual(self.browser.run("""
            return document.querySelector('.note.host').closest('tbody').querySelector('.offset').textContent"""), "15")

    def test_numbers_of_libqx_encoding_are_told_in_words(self):
        self.browser.put("0000110011010D0A5BAE")
        self.browser.choose("kind", "cell broadcast")
        self.assertEqual(self.browser.texts(".differences tbody tr")[0],
                         "m_PageParameter page 1 of 1 1: page 0 of 1")
        self.assertIn("by libQX_Encoding m_PageParameter: 1: page 0 of 1", self.browser.texts(".fields .note.host"))

    def test_a_text_that_libqx_encoding_sends_differently_has_both_too(self):
        self.browser.put("Çok güzel")
        self.assertEqual(self.browser.texts(".differences tbody tr"),
                         ["Alphabet GSM 7-bit UCS2", "Size 9 septets 9 UCS2 units", "Still fits 151 61"])
        self.browser.choose("alphabet", "UCS2")
        self.assertFalse(self.browser.is_shown(".differences"))

    def test_it_is_not_shown_where_both_read_the_same(self):
        self.browser.put(HELLO)
        self.assertFalse(self.browser.is_shown(".differences"))

    def test_the_json_is_shown_and_copied(self):
        self.browser.put(HELLO)
        self.assertEqual(self.browser.text(".json pre"), "")
        self.browser.one(".json summary").click()
        self.browser.wait(lambda: '"text": "Hello"' in self.browser.text(".json pre"))
        self.browser.press("Copy JSON")
        self.assertIn('"tp_mti": {\n    "raw": 0,\n    "meaning": "SMS-DELIVER"\n  }', self.browser.clipboard())
        self.browser.press("Octet map")
        self.assertIn('"map": [', self.browser.text(".json pre"))
        self.browser.put("hello")
        self.assertIn('"septets": 5', self.browser.text(".json pre"))
        self.browser.press("PDUs")
        self.assertIn('"tpdu_length": ', self.browser.text(".json pre"))


class Addresses(PageTest):
    def test_a_pdu_behind_the_address_is_shown(self):
        self.browser.open(f"#{HELLO}")
        self.assertEqual(self.browser.text(".bubble"), "Hello")
        self.assertEqual(self.browser.one("#source").get_attribute("value"), HELLO)

    def test_another_address_shows_another(self):
        self.browser.open(f"#{HELLO}")
        self.browser.run("location.hash = arguments[0]", f"cell:{PAGE}")
        self.browser.wait(lambda: self.browser.text(".message h2").startswith("CMAS"))

    def test_the_page_never_changes_its_address(self):
        before = self.browser.driver.current_url
        entries = self.browser.run("return history.length")
        for text in (HELLO, LOG, PAGE, "A text"):
            self.browser.put(text)
        for button in self.browser.texts(".examples button"):
            self.browser.press(button)
        self.browser.press("Copy link")
        self.assertEqual(self.browser.driver.current_url, before)
        self.assertEqual(self.browser.run("return history.length"), entries)

    def test_a_link_is_copied_that_shows_the_same(self):
        self.browser.put("Zwei Zeilen\n50 % & #1")
        self.browser.press("Copy link")
        link = self.browser.clipboard()
        self.assertEqual(link, self.browser.page.as_uri() + "#Zwei%20Zeilen%0A50%20%25%20%26%20%231")
        self.browser.open(link[len(self.browser.page.as_uri()):])
        self.assertEqual(self.browser.text(".drawn-text"), "Zwei Zeilen\n50 % & #1")

    def test_the_link_keeps_as_what_it_is_read(self):
        self.browser.put(PAGE)
        self.browser.choose("kind", "cell broadcast")
        self.browser.press("Copy link")
        self.assertEqual(self.browser.clipboard(), f"{self.browser.page.as_uri()}#cell:{PAGE}")

    def test_the_link_keeps_what_was_said_of_pdus(self):
        self.browser.put(SHORT)
        self.browser.choose("kind", "PDUs")
        self.browser.choose("centre", "none")
        self.browser.choose("direction", "from the mobile")
        self.browser.press("Copy link")
        link = self.browser.clipboard()
        self.assertEqual(link, f"{self.browser.page.as_uri()}#pdu,direction=from-mobile,smsc=no:{SHORT}")
        self.browser.open(link[len(self.browser.page.as_uri()):])
        self.assertIn("Hello w", self.browser.text(".bubble"))
        self.assertEqual(self.browser.text(".message .tag"), "SMS-SUBMIT")

    def test_half_a_character_is_shown_and_linked_as_one_that_is_damaged(self):
        self.browser.run("""
            arguments[0].value = 'Well \\ud83d';
            arguments[0].dispatchEvent(new Event('input'))""", self.browser.one("#source"))
        self.assertEqual(self.browser.text(".drawn-text"), "Well \ufffd")
        self.browser.press("Copy link")
        self.assertEqual(self.browser.clipboard(), f"{self.browser.page.as_uri()}#Well%20%EF%BF%BD")

    def test_a_damaged_address_says_so(self):
        self.browser.put(HELLO)
        self.browser.run("location.hash = '%E0%A4%A'")
        self.browser.wait(lambda: "damaged" in self.browser.text("[role=status]"))
        self.assertEqual(self.browser.one("#source").get_attribute("value"), "")
        self.assertFalse(self.browser.is_shown(".message"))


if __name__ == "__main__":
    unittest.main()
