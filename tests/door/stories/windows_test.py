"""The door for Windows sells as its twin does: those of its stories that do not look at this system's processes."""
import unittest

from selling_test import Selling

TOLD = ["test_a_sale_has_its_number_and_its_repetition_the_same_one", "test_every_error_at_once_and_the_key_is_free",
        "test_who_does_not_wait_is_told_where_to_ask", "test_what_can_be_read", "test_eight_tills_at_once",
        "test_the_other_operations", "test_news_come_as_they_happen_and_again_to_who_was_away"]


def load_tests(_loader, _tests, _pattern):
    return unittest.TestSuite(map(Selling, TOLD))


if __name__ == "__main__":
    unittest.main()
