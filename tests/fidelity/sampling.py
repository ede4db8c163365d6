# SPDX-License-Identifier: Apache-2.0
"""Words to search for, and how often a text contains them."""
import re

LETTERS = re.compile(r'[^\W\d_]{4,}')
LONGEST = 24  # a longer run of letters is no word, or is in a script without spaces
IDEOGRAPHIC = re.compile(r'[\u0e00-\u0eff\u1780-\u17ff\u3040-\u30ff\u3400-\u9fff]')
IDEOGRAPHIC_LENGTH = 4


def words_of(text: str) -> list[str]:
    """Runs of letters that do not change their length when their case is folded."""
    found = []
    for match in LETTERS.finditer(text):
        word = match.group()
        word = word[:IDEOGRAPHIC_LENGTH] if IDEOGRAPHIC.search(word) else word
        if len(word) <= LONGEST and len(word.casefold()) == len(word):
            found.append(word)
    return found


def sample(texts: list[str], most: int) -> list[str]:
    """At most so many different words, spread evenly over the texts. The same texts have the same sample."""
    by_case: dict[str, str] = {}
    for text in texts:
        for word in words_of(text):
            by_case.setdefault(word.casefold(), word)
    distinct = list(by_case.values())
    if len(distinct) <= most:
        return distinct
    return [distinct[i * len(distinct) // most] for i in range(most)]


def occurrences(word: str, texts: list[str]) -> int:
    """How often the texts contain the word, in any case; a hit does not overlap the hit before."""
    wanted = word.casefold()
    return sum(text.casefold().count(wanted) for text in texts)


def texts_with(word: str, texts: list[str]) -> int:
    """How many texts contain the word, in any case."""
    wanted = word.casefold()
    return sum(wanted in text.casefold() for text in texts)
