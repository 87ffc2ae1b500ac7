"""Bit generators: NumPy's interface over the library's streams."""
import copy
import ctypes
import os
import pickle
import threading

import numpy as np
import pytest
from hypothesis import given, settings
from hypothesis import strategies as st

import orvik.random
from library import Stream
from orvik import _random
from orvik.random import ARS5, MCG59, MRG32K3A, MT2203, MT19937, NIEDERREITER, PHILOX4X32X10, R250, SFMT19937, SOBOL, TRNG, WH

ALL = [getattr(orvik.random, name) for name in orvik.random._generators.__all__]
REPEATABLE = [kind for kind in ALL if kind is not TRNG]
SKIPPING = [ARS5, orvik.random.MCG31M1, MCG59, MRG32K3A, MT19937, PHILOX4X32X10, SFMT19937, WH]
LONG = [ARS5, MRG32K3A, PHILOX4X32X10]


def one_word(bit_generator):
    interface = bit_generator.ctypes
    return interface.next_uint32(interface.state)


# ---- NumPy's side


def published_twin(seed):
    """NumPy's own Mersenne Twister with the published seeding by two words, which is what an int seed of ours means."""
    twin = np.random.MT19937()
    twin._legacy_seeding([seed & 0xFFFFFFFF, seed >> 32])
    return twin


@pytest.mark.parametrize("seed", [0, 7, 1 << 40])
def test_generator_draws_what_it_draws_from_the_published_twister(seed):
    ours, numpys = np.random.Generator(MT19937(seed)), np.random.Generator(published_twin(seed))
    for draw in (lambda g: g.random(1000), lambda g: g.integers(0, 1000, 777), lambda g: g.standard_normal(1000),
                 lambda g: g.integers(0, 1 << 60, 99), lambda g: g.permutation(100), lambda g: g.random(9, dtype=np.float32),
                 lambda g: g.bytes(33), lambda g: g.choice(50, 7, replace=False)):
        np.testing.assert_array_equal(draw(ours), draw(numpys))
    np.testing.assert_array_equal(ours.bit_generator.random_raw(5), numpys.bit_generator.random_raw(5))


@pytest.mark.parametrize("kind", ALL)
def test_every_generator_is_a_bit_generator_of_numpy(kind):
    bit_generator = kind(3)
    assert isinstance(bit_generator, np.random.BitGenerator)
    rng = np.random.default_rng(bit_generator)
    assert rng.bit_generator is bit_generator
    assert 0 <= rng.random() < 1
    assert np.random.Generator(bit_generator).integers(5) in range(5)
    assert np.isfinite(np.random.RandomState(bit_generator).normal())
    with bit_generator.lock:
        assert bit_generator.lock.acquire(blocking=False)  # reentrant
        bit_generator.lock.release()


@pytest.mark.parametrize("kind", REPEATABLE)
def test_words_of_numpy_are_the_words_of_the_library(kind):
    expected = kind(3).words(10000)
    np.testing.assert_array_equal(np.random.Generator(kind(3)).integers(0, 1 << 32, 10000, dtype=np.uint32), expected)
    np.testing.assert_array_equal(kind(3).random_raw(10000), expected)
    by_hand = kind(3)
    assert [one_word(by_hand) for _ in range(300)] == expected[:300].tolist()


@pytest.mark.parametrize("kind", REPEATABLE)
def test_a_number_of_64_bits_is_two_words_and_a_double_53_bits_of_two(kind):
    words = kind(3).words(4).tolist()
    interface = (source := kind(3)).ctypes
    assert interface.next_uint64(interface.state) == words[0] << 32 | words[1]
    assert interface.next_double(interface.state) == ((words[2] >> 5) * 2**26 + (words[3] >> 6)) / 2**53
    other = kind(3)
    other.words(4)
    assert source.state == other.state


@pytest.mark.parametrize("kind", [MT19937, PHILOX4X32X10, WH, MCG59])
def test_words_have_full_bits(kind):
    words = kind(11).words(4000)
    assert np.bitwise_or.reduce(words) == 0xFFFFFFFF
    shares = [(words >> bit & 1).mean() for bit in range(32)]
    assert max(abs(share - 0.5) for share in shares) < 0.05


def test_random_raw_has_numpys_forms():
    a, b = PHILOX4X32X10(5), PHILOX4X32X10(5)
    one = a.random_raw()
    assert isinstance(one, int) and one == int(b.random_raw(1)[0])
    block = a.random_raw((3, 4))
    assert block.shape == (3, 4) and block.dtype == np.uint64
    assert b.random_raw(12, output=False) is None
    assert a.state == b.state


# ---- Seeds


def test_an_int_seed_is_that_of_the_c_interface():
    for kind, number in ((MT19937, _random.MT19937), (PHILOX4X32X10, _random.PHILOX4X32X10), (R250, _random.R250)):
        seed = 0x123456789ABCDEF0
        expected = Stream(number, seed).draw("i_words", np.empty(100, np.uint32))
        np.testing.assert_array_equal(kind(seed).words(100), expected)
        np.testing.assert_array_equal(kind(np.uint64(seed)).words(100), expected)
        np.testing.assert_array_equal(kind([0x9ABCDEF0, 0x12345678]).words(100), expected)


@pytest.mark.parametrize("kind", [MT19937, PHILOX4X32X10, MRG32K3A, WH])
def test_seeds_of_all_kinds_give_streams_that_differ(kind):
    sequence = np.random.SeedSequence(42)
    seeds = (1, 2, 3 << 64, [1, 2, 3], (1, 2, 4), np.array([5, 6]), sequence, sequence.spawn(1)[0])
    words = {kind(seed).words(4).tobytes() for seed in seeds}
    assert len(words) == len(seeds)
    for seed in seeds:
        np.testing.assert_array_equal(kind(seed).words(50), kind(seed).words(50))


@pytest.mark.parametrize("kind", REPEATABLE[:-1])
def test_none_asks_for_fresh_entropy(kind):
    if kind._sequence_of_points:
        pytest.skip("points have no seed")
    assert kind().words(4).tobytes() != kind().words(4).tobytes()


def test_mcg59_is_seeded_oddly_by_a_seed_sequence():
    states = [MCG59(np.random.SeedSequence(k)).words(1) for k in range(20)]
    assert len({int(s[0]) for s in states}) == 20
    for k in range(20):
        assert MCG59(np.random.SeedSequence(k))._seed_words(None, np.random.SeedSequence(k))[0] % 2 == 1


@pytest.mark.parametrize("seed, error", [(-1, ValueError), ([1, -2], ValueError), (1.5, TypeError), ("seed", TypeError),
                                         ([1.5], TypeError), ([1 << 32], ValueError), (object(), TypeError),
                                         (b"12", TypeError), ({}, None)])
def test_bad_seeds_raise_what_numpy_raises(seed, error):
    if error is None:
        MT19937(seed)  # no words at all
    else:
        with pytest.raises(error):
            MT19937(seed)


@pytest.mark.parametrize("member, error", [(-1, ValueError), (6024, ValueError), (1.0, TypeError)])
def test_members_out_of_range_are_refused(member, error):
    with pytest.raises(error):
        MT2203(1, member)


def test_members_are_sequences_of_their_own():
    assert len({MT2203(1, member).words(500).tobytes() for member in (0, 1, 6023)}) == 3
    assert WH(1, 272).member == 272 and WH(1).member == 0


@pytest.mark.parametrize("points, dimension, most", [(SOBOL, 41, 40), (NIEDERREITER, 319, 318), (NIEDERREITER, 0, 318)])
def test_a_dimension_that_is_refused_is_named(points, dimension, most):
    with pytest.raises(ValueError, match=f"dimension must be 1 to {most}, not {dimension}"):
        points(dimension)


def test_a_type_that_is_refused_stands_beside_the_name_of_the_method():
    with pytest.raises(TypeError, match="for normal"):
        MT19937(1).normal(dtype=np.int32)


@pytest.mark.parametrize("dimension, error", [(0, ValueError), (41, ValueError), (-1, ValueError), (1 << 40, ValueError),
                                              (2.5, TypeError), ([3, 1, -2], ValueError), ([1 << 80], ValueError),
                                              ([[3]], TypeError)])
def test_dimensions_out_of_range_are_refused(dimension, error):
    with pytest.raises(error):
        SOBOL(dimension)


def test_points_of_ones_own_numbers_are_taken():
    np.testing.assert_array_equal(SOBOL([3]).uniform(size=9), SOBOL(3).uniform(size=9))


# ---- The place in the sequence

STEP = st.one_of(st.tuples(st.just("words"), st.integers(0, 300)), st.tuples(st.just("one"), st.integers(1, 5)),
                 st.tuples(st.just("uniform"), st.integers(0, 300)), st.tuples(st.just("skip"), st.integers(0, 300)),
                 st.tuples(st.just("generator"), st.integers(0, 200)),
                 st.tuples(st.sampled_from(["state", "copy", "pickle", "deepcopy", "reduce"]), st.just(0)))


@pytest.mark.parametrize("kind", [MT19937, PHILOX4X32X10, SFMT19937, ARS5])
@settings(max_examples=40)
@given(steps=st.lists(STEP, max_size=12))
def test_the_place_is_exact_whatever_was_drawn(kind, steps):
    sequence = kind(9).words(8000)
    stream, place = kind(9), 0
    for what, n in steps:
        if what == "words":
            np.testing.assert_array_equal(stream.words(n), sequence[place:place + n])
        elif what == "one":
            assert [one_word(stream) for _ in range(n)] == sequence[place:place + n].tolist()
        elif what == "uniform":
            stream.uniform(size=n)
        elif what == "generator":
            np.random.Generator(stream).random(n, dtype=np.float32)
        elif what == "skip":
            stream.skip(n)
        elif what == "state":
            other = kind()
            other.state = stream.state
            stream = other
        elif what == "copy":
            stream = stream.copy()
        elif what == "deepcopy":
            stream = copy.deepcopy(stream)
        elif what == "pickle":
            stream = pickle.loads(pickle.dumps(stream))
        else:
            stream = pickle.loads(pickle.dumps(np.random.Generator(stream))).bit_generator
        place += n
    assert one_word(stream) == sequence[place]


@pytest.mark.parametrize("kind", REPEATABLE)
def test_state_is_that_of_a_stream_of_which_only_the_words_handed_out_were_drawn(kind):
    for n in (1, 63, 64, 65, 5000):
        a, b = kind(3), kind(3)
        for _ in range(n):
            one_word(a)
        b.words(n)
        assert a.state == b.state
        one_word(a)
        assert a.state != b.state


@pytest.mark.parametrize("kind", SKIPPING)
def test_skip_goes_on_as_draws_do(kind):
    a, b = kind(3), kind(3)
    a.uniform(size=12345)
    b.skip(12345)
    np.testing.assert_array_equal(a.uniform(size=10), b.uniform(size=10))


@pytest.mark.parametrize("kind", LONG)
def test_long_skips_add_up(kind):
    a, b = kind(3), kind(3)
    a.skip((5 << 64) + 7)
    for _ in range(10):
        b.skip(1 << 63)
    b.skip(7)
    assert a.state == b.state


@pytest.mark.parametrize("kind", [R250, MT2203, TRNG])
def test_generators_that_cannot_skip_say_so(kind):
    stream = kind(3)
    for call in (lambda: stream.skip(5), lambda: stream.skip(1 << 70), stream.jumped, lambda: stream.leapfrog(0, 2)):
        with pytest.raises(NotImplementedError):
            call()


def test_bad_counts_of_a_skip():
    with pytest.raises(ValueError):
        MT19937(1).skip(-1)
    with pytest.raises(TypeError):
        MT19937(1).skip(1.5)
    with pytest.raises(NotImplementedError):
        MT19937(1).skip(1 << 64)
    with pytest.raises(ValueError):
        MT19937(1).jumped(-1)


def test_points_do_not_go_beyond_their_end():
    stream = SOBOL(1)
    stream.skip((1 << 32) - 5)
    before = stream.state
    with pytest.raises(ValueError):
        stream.skip(10)
    assert stream.state == before


def test_a_generator_at_the_end_of_the_points_warns_and_goes_on():
    stream = SOBOL(1)
    stream.skip((1 << 32) - 5)
    rng = np.random.Generator(stream)
    with pytest.warns(RuntimeWarning):
        assert np.isfinite(rng.standard_normal(100)).all()
    assert rng.integers(3, size=1000).max() == 2  # rejection comes to an end
    for call in (stream.uniform, stream.random_raw, stream.words):
        with pytest.raises(RuntimeError):
            call()
    stream.state = SOBOL(1).state
    assert stream.uniform() == 0.5


@pytest.mark.parametrize("kind", [MCG59, WH, orvik.random.MCG31M1])
def test_leapfrog_keeps_every_kth_number(kind):
    whole = kind(3).uniform(size=300)
    for k in range(3):
        part = kind(3)
        part.leapfrog(k, 3)
        np.testing.assert_array_equal(part.uniform(size=100), whole[k::3])


@pytest.mark.parametrize("k, nstreams", [(3, 3), (-1, 2), (0, 0), (0, 1 << 31), (1 << 70, 2)])
def test_bad_numbers_of_a_leapfrog(k, nstreams):
    with pytest.raises(ValueError):
        MCG59(1).leapfrog(k, nstreams)


def test_leapfrog_of_points_chooses_a_coordinate():
    stream = SOBOL(3)
    stream.leapfrog(1, 0x7FFFFFFF)
    np.testing.assert_array_equal(stream.uniform(size=50), SOBOL(3).uniform(size=(50, 3))[:, 1])


@pytest.mark.parametrize("kind", [ARS5, PHILOX4X32X10, MRG32K3A, MT19937, SFMT19937, WH, MCG59])
def test_jumps_are_skips_and_leave_the_stream(kind):
    stream = kind(3)
    one_word(stream)
    before = stream.state
    twice = stream.jumped(2)
    assert stream.state == before
    assert stream.jumped().jumped().state == twice.state
    assert stream.jumped(0).state == before
    by_hand = stream.copy()
    by_hand._far(2 * kind._jump)
    assert by_hand.state == twice.state


@pytest.mark.parametrize("kind", [k for k in ALL if not k._sequence_of_points])
def test_children_differ_and_do_not_depend_on_how_they_are_asked_for(kind):
    def parent():
        return kind(np.random.SeedSequence(5))

    children = parent().spawn(3)
    assert all(type(child) is kind for child in children)
    assert len({c.words(4).tobytes() for c in [parent(), *children]}) == 4
    if kind is TRNG:
        return
    again = (p := parent()).spawn(1) + p.spawn(2)
    for a, b in zip(parent().spawn(3), again):
        assert a.state == b.state
    pickled = pickle.loads(pickle.dumps(p))
    assert pickled.spawn(1)[0].state == p.spawn(1)[0].state


def test_grandchildren_lie_between_children():
    parent = PHILOX4X32X10(3)
    first, second = parent.spawn(2)
    inner = first.spawn(1)[0]
    expected = first.copy()
    expected.skip(1 << 96)
    assert inner.state == expected.state
    assert len({s.state["state"] for s in (parent, first, second, inner)}) == 4


def test_families_spawn_members_with_seeds_of_their_own():
    children = MT2203(3, 6022).spawn(3)
    assert [child.member for child in children] == [6023, 0, 1]
    assert not (children[1].words(4) == MT2203(3, 0).words(4)).any()


def test_what_cannot_spawn_says_so():
    with pytest.raises(TypeError):
        SOBOL(2).spawn(1)
    with pytest.raises(ValueError):
        MT19937(1).spawn(1)[0].spawn(1)
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).spawn(-1)
    with pytest.raises(ValueError):
        PHILOX4X32X10(1).spawn(1 << 16)


# ---- States, images


@pytest.mark.parametrize("state, error", [(None, TypeError), (5, TypeError), ({}, ValueError), ([], TypeError),
                                          ({"bit_generator": "PCG64"}, ValueError), ({"bit_generator": "MT19937"}, ValueError),
                                          ({"bit_generator": "MT19937", "state": "text"}, ValueError),
                                          ({"bit_generator": "MT19937", "state": b""}, ValueError),
                                          ({"bit_generator": "MT19937", "state": b"x" * 3000}, ValueError),
                                          ({"bit_generator": "MT19937", "state": R250(1).state["state"]}, ValueError)])
def test_bad_states_are_refused_and_leave_the_stream(state, error):
    stream = MT19937(1)
    before = stream.state
    with pytest.raises(error):
        stream.state = state
    assert stream.state == before


@pytest.mark.parametrize("kind", [PHILOX4X32X10, MRG32K3A])
def test_no_damaged_image_is_taken(kind):
    image = kind(1).state["state"]
    stream = kind(2)
    for place in range(len(image)):
        for flip in (1, 0x80):
            damaged = bytearray(image)
            damaged[place] ^= flip
            with pytest.raises(ValueError):
                stream.state = {"bit_generator": kind.__name__, "state": bytes(damaged)}
    for length in range(len(image)):
        with pytest.raises(ValueError):
            stream.state = {"bit_generator": kind.__name__, "state": image[:length]}
    assert stream.state == kind(2).state


@pytest.mark.parametrize("damage", [{"generation": -1}, {"generation": 9}, {"spawned": -1}, {"sequence": 5}])
def test_damaged_histories_are_refused(damage):
    stream = PHILOX4X32X10(1)
    with pytest.raises(ValueError):
        stream.state = PHILOX4X32X10(2).state | damage
    assert stream.state == PHILOX4X32X10(1).state


def test_raw_words_at_the_end_of_the_points_raise():
    stream = SOBOL(1)
    stream.skip((1 << 32) - 5)
    with pytest.warns(RuntimeWarning), pytest.raises(RuntimeError):
        stream.random_raw(100)


def test_a_damaged_pickle_raises():
    pickled = bytearray(pickle.dumps(PHILOX4X32X10(1)))
    start = bytes(pickled).index(b"ORVKSTM1")
    pickled[start + 40] ^= 1
    with pytest.raises(ValueError):
        pickle.loads(bytes(pickled))
    with pytest.raises(ValueError):
        orvik.random._bit_generator._unpickled("Stream")


def test_state_of_a_member_brings_its_member():
    stream = MT2203(1, 5)
    other = MT2203(1)
    other.state = stream.state
    assert other.member == 5
    assert pickle.loads(pickle.dumps(stream)).member == 5


# ---- Threads, forks


def test_threads_may_share_a_stream():
    stream = MT19937(3)
    parts = []

    def work():
        for _ in range(50):
            part = stream.uniform(size=1000)
            rng.random(100)
            parts.append(part)

    rng = np.random.Generator(stream)
    threads = [threading.Thread(target=work) for _ in range(4)]
    for thread in threads:
        thread.start()
    for thread in threads:
        thread.join()
    expected = MT19937(3)
    expected.skip(4 * 50 * (1000 + 200))
    assert stream.state == expected.state
    drawn = set(np.concatenate(parts).tolist())
    assert drawn <= set(MT19937(3).uniform(size=4 * 50 * 1200).tolist())


def test_a_child_after_fork_draws_on():
    stream = SFMT19937(3)
    stream.uniform(size=10000000)  # the pool has threads
    expected = stream.copy().normal(size=6000000).tobytes()
    child = os.fork()
    if child == 0:
        os._exit(0 if stream.normal(size=6000000).tobytes() == expected else 1)
    assert os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]) == 0


def test_an_object_that_was_not_made_is_no_crash():
    stream = MT19937.__new__(MT19937)
    with pytest.raises((AttributeError, TypeError)):
        stream.uniform()
    with pytest.raises((AttributeError, TypeError, ValueError)):
        np.random.Generator(stream)
    with pytest.raises((TypeError, ValueError)):
        _random.Stream()
    with pytest.raises(ValueError):
        _random.Stream.make(1, 1).serve(ctypes.pythonapi)


def test_generators_draw_on_from_an_object_that_is_initialised_again():
    stream = PHILOX4X32X10(7)
    rng = np.random.Generator(stream)
    draw = stream.uniform
    rng.random(5)
    stream.__init__(9)
    assert rng.random() == np.random.Generator(PHILOX4X32X10(9)).random()
    stream.__init__(9)
    assert draw() == PHILOX4X32X10(9).uniform()
    member = MT2203(1, 5)
    other = np.random.Generator(member)
    member.__init__(1, member=3)
    assert member.member == 3 and other.random() == np.random.Generator(MT2203(1, 3)).random()
    with pytest.raises(ValueError):
        stream.__init__(-1)
    before = stream.state
    assert draw() is not None and stream.state != before


class Own(PHILOX4X32X10):
    def __init__(self, name, seed):
        super().__init__(seed)


class OwnPoints(SOBOL):
    pass


@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s)), lambda s: s.copy()])
def test_copies_of_subclasses_are_of_the_subclass_and_go_on_alike(copied):
    for stream in (Own("a", 5), OwnPoints(3)):
        stream.skip(7)
        other = copied(stream)
        assert type(other) is type(stream) and np.array_equal(other.uniform(size=4), stream.uniform(size=4))


@pytest.mark.parametrize("kind", ["MT19937", "PHILOX4X32X10", "MT2203"])
@pytest.mark.parametrize("copied", [copy.copy, copy.deepcopy, lambda s: pickle.loads(pickle.dumps(s))])
def test_numpys_generators_over_a_stream_are_copied_and_pickled(kind, copied):
    rng = np.random.Generator(getattr(orvik.random, kind)(7))
    rng.standard_normal(3)
    other = copied(rng)
    assert type(other.bit_generator) is getattr(orvik.random, kind)
    assert np.array_equal(other.random(5), rng.random(5))


@pytest.mark.parametrize("kind", ["MT19937", "PHILOX4X32X10", "SOBOL"])
def test_a_random_state_over_a_stream_has_a_state(kind):
    old = np.random.RandomState(getattr(orvik.random, kind)(7))
    old.randn(3)
    state = old.get_state(legacy=False)
    assert state["bit_generator"] == kind
    first = old.randn(4)
    old.set_state(state)
    assert np.array_equal(old.randn(4), first)


def test_a_random_state_over_a_stream_is_pickled():
    old = np.random.RandomState(PHILOX4X32X10(7))
    old.randn(3)
    other = pickle.loads(pickle.dumps(old))
    assert np.array_equal(other.randn(4), old.randn(4))
