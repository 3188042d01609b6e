"""Settings that the installer writes for all users, each with a property of the command line.

All are written as texts, since the search for what is stored tells a number apart from a text ("#1" and "1"), and what a
version before has written is found again as it was.
"""

import dataclasses

ROOT = "Software\\Lumarkscribe\\Mirovelcom"


@dataclasses.dataclass(frozen=True)
class MachineSetting:
    property: str
    group: str
    name: str
    default: str = ""  # what a machine gets that never had the product; empty: nothing
    values: tuple = ()  # all there are; empty: any
    accepted: str = ""  # a condition, where any value is not good
    refusal: str = ""

    @property
    def key(self):
        return f"{ROOT}\\{self.group}"

    def decisions(self, found):
        """What the property becomes when the command line says nothing: (action, value, condition) in order. `found` has
        what is stored."""
        for value in self.values:
            yield (f"Keep{self.name}{value}", value,
                   f'NOT {self.property} AND ({found} = "{value}" OR {found} = "#{value}")')
        if not self.values:
            # A number of somebody's own has no text that could be written back.
            yield f"Keep{self.name}", f"[{found}]", f'{found} AND NOT {self.property} AND NOT ({found} << "#")'
        if self.default:
            # A machine with a version before has its documents as they are.
            yield (f"Default{self.name}", self.default,
                   f"NOT {self.property} AND NOT {found} AND NOT EARLIERVERSION AND NOT Installed")


def choice(name, group, setting, default, *values):
    accepted = " OR ".join(f'{name} = "{value}"' for value in values)
    return MachineSetting(name, group, setting, default, values, f"({accepted})",
                          f"{name} is one of {', '.join(values)}.")


SETTINGS = (
    choice("COMPOSE", "Word", "Compose", "1", "0", "1", "2"),
    choice("OWNINSTANCE", "Word", "OwnInstance", "1", "0", "1"),
    choice("STRICT", "Word", "Strict", "", "0", "1"),
    MachineSetting("BUSYTIMEOUT", "Word", "BusyTimeout", accepted="BUSYTIMEOUT >= 0",
                   refusal="BUSYTIMEOUT is a number of seconds."),
    MachineSetting("TEMPLATE", "Word", "WordTemplateName"),
    MachineSetting("DIAGNOSTICS", "Log", "Diagnostics"),
)
