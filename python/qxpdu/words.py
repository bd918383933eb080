"""English for the numbers of messages; empty for a number that has none."""
from ._core import (alphabet_name, cell_coding_meaning, cell_format_name, class_meaning, coding_meaning, command_type_meaning, element_name,
                    failure_cause_meaning, field_description, join_outcome_meaning, join_outcome_name, language_name,
                    message_identifier_meaning, numbering_plan_name, port_meaning, protocol_meaning, serial_number_meaning, status_class,
                    status_meaning, type_name, type_of_number_name, waiting_type_name, warning_type_name)

__all__ = [
    "alphabet_name", "cell_coding_meaning", "cell_format_name", "class_meaning", "coding_meaning", "command_type_meaning", "element_name",
    "failure_cause_meaning", "field_description", "join_outcome_meaning", "join_outcome_name", "language_name",
    "message_identifier_meaning", "numbering_plan_name", "port_meaning", "protocol_meaning", "serial_number_meaning", "status_class",
    "status_meaning", "type_name", "type_of_number_name", "waiting_type_name", "warning_type_name",
]
