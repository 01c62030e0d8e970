"""Look-alikes that live apart lend each other a share, so that the factor of a place can turn an
answer that is too sure: a photograph alone often can't tell them."""

import csv

import numpy as np

# Two labels are look-alikes if they are of one family, their rows of the last layer point the same
# way (cosine), and of the regions where the rarer one lives less than a part holds the other.
ALIKE = 0.3
APART = 0.3

# What a label gives to its nearest and its second look-alike.
SHARES = (0.15, 0.05)


def families(master):
    """The family of each label in the file of species facts."""
    with open(master, newline="", encoding="utf-8") as file:
        return {row["scientific_name"].replace(" ", "_"): row["family"]
                for row in csv.DictReader(file)}


def lived_in(labels, regions):
    """Whether a label lives in a region: bool [regions, labels]."""
    lists = [set(region["labels"]) for region in regions]
    return np.array([[label in living for label in labels] for living in lists])


def twins(weight, labels, families_by_label, regions, shares=SHARES):
    """The look-alikes' (index, weight), each [N, K]: the share of label i becomes the sum over k of
    weight[i, k] x the share of label index[i, k]. `weight` [N, 1280] is the last layer's."""
    partners = _partners(weight, labels, families_by_label, regions, len(shares))
    lent = np.eye(len(labels))
    for label, own in enumerate(partners):
        for partner, share in zip(own, shares):
            lent[partner, label] += share
            lent[label, label] -= share
    return _as_neighbours(lent)


def _partners(weight, labels, families_by_label, regions, most):
    """For each label its look-alikes, the nearest first, at most `most`."""
    lives = lived_in(labels, regions).astype(np.float64)
    regions_of = lives.sum(axis=0)
    fewer = np.maximum(np.minimum.outer(regions_of, regions_of), 1)
    shared = lives.T @ lives / fewer
    family = np.array([families_by_label.get(label, label) for label in labels])
    alike = _cosines(weight)
    lives_somewhere = regions_of > 0
    fits = ((family[:, None] == family[None]) & (alike > ALIKE) & (shared < APART)
            & lives_somewhere[:, None] & lives_somewhere[None])
    np.fill_diagonal(fits, False)
    answer = []
    for label in range(len(labels)):
        own = np.where(fits[label])[0]
        answer.append(own[np.argsort(-alike[label, own], kind="stable")][:most])
    return answer


def _cosines(weight):
    rows = weight.astype(np.float64) - weight.mean(axis=0)
    rows = rows / np.linalg.norm(rows, axis=1, keepdims=True)
    return rows @ rows.T


def _as_neighbours(lent):
    """The matrix as each row's entries over nought, the largest first, filled up with nought."""
    most = int((lent > 0).sum(axis=1).max())
    index = np.argsort(-lent, axis=1, kind="stable")[:, :most]
    return index, np.take_along_axis(lent, index, axis=1).astype(np.float32)


def widespread(labels, regions, count):
    """The indices of the `count` labels that live in most regions."""
    return np.argsort(-lived_in(labels, regions).sum(axis=0), kind="stable")[:count]
