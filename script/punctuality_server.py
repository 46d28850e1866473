# SPDX-License-Identifier: MIT
"""A PulseAudio server of our own with one null sink, and what plays on it and knows when it sounds."""
import ctypes
import os
import pathlib
import signal
import subprocess
import tempfile
import time

RATE = 48000
SINK = "stage"
SINK_ARGUMENTS = f"sink_name={SINK} rate={RATE} channels=1 format=s16le"


class Server:
    """Runs while it is entered; env is what its clients need to find it, and nothing else."""

    def __enter__(self):
        self.folder = tempfile.TemporaryDirectory()
        root = pathlib.Path(self.folder.name)
        self.env = {name: value for name, value in os.environ.items()
                    if name not in ("DISPLAY", "DBUS_SESSION_BUS_ADDRESS") and not name.startswith("PULSE_")}
        for name in ("HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "PULSE_RUNTIME_PATH",
                     "PULSE_STATE_PATH", "PULSE_CONFIG_PATH"):
            (root / name).mkdir(mode=0o700)
            self.env[name] = str(root / name)
        (root / "client.conf").write_text("autospawn = no\nenable-shm = no\n")
        self.env["PULSE_CLIENTCONFIG"] = str(root / "client.conf")
        self.env["PULSE_SERVER"] = f"unix:{root}/native"
        self._run()
        return self

    def __exit__(self, *_):
        self.process.terminate()
        self.process.wait()
        self.folder.cleanup()

    def _run(self):
        socket = f"{self.folder.name}/native"
        self.process = subprocess.Popen(
            ["pulseaudio", "-n", "--daemonize=no", "--exit-idle-time=-1", "--use-pid-file=no", "--disable-shm=yes",
             "--log-level=error", "-L", f"module-native-protocol-unix auth-anonymous=1 socket={socket}",
             "-L", f"module-null-sink {SINK_ARGUMENTS}"], env=self.env)
        while subprocess.run(["pactl", "info"], env=self.env, capture_output=True).returncode != 0:
            if self.process.poll() is not None:
                raise SystemExit("script/punctuality: pulseaudio has ended")
            time.sleep(0.05)

    # Each takes a second, after which all is as before.

    def crash(self):
        self.process.kill()
        self.process.wait()
        pathlib.Path(self.folder.name, "native").unlink(missing_ok=True)
        time.sleep(1.0)
        self._run()

    def hang(self):
        self.process.send_signal(signal.SIGSTOP)
        time.sleep(1.0)
        self.process.send_signal(signal.SIGCONT)

    def lose_sink(self):
        subprocess.run(["pactl", "unload-module", "module-null-sink"], env=self.env, check=True)
        time.sleep(1.0)
        subprocess.run(["pactl", "load-module", "module-null-sink", *SINK_ARGUMENTS.split()], env=self.env, check=True,
                       stdout=subprocess.DEVNULL)


class SampleSpec(ctypes.Structure):
    _fields_ = [("format", ctypes.c_int), ("rate", ctypes.c_uint32), ("channels", ctypes.c_uint8)]


class BufferAttributes(ctypes.Structure):
    _fields_ = [(name, ctypes.c_uint32) for name in ("maxlength", "tlength", "prebuf", "minreq", "fragsize")]


class TimingInfo(ctypes.Structure):
    _fields_ = [("seconds", ctypes.c_long), ("microseconds", ctypes.c_long), ("synchronized", ctypes.c_int),
                ("sink_usec", ctypes.c_uint64), ("source_usec", ctypes.c_uint64), ("transport_usec", ctypes.c_uint64),
                ("playing", ctypes.c_int), ("write_index_corrupt", ctypes.c_int), ("write_index", ctypes.c_int64),
                ("read_index_corrupt", ctypes.c_int), ("read_index", ctypes.c_int64)]


READY_CONTEXT, READY_STREAM, S16LE = 4, 2, 3


class Player:
    """Plays mono 16-bit samples. The server tells which sample it took last and how long what it took has until it
    sounds; so, after the first second, the median of its answers says when sample 0 sounded."""

    def __init__(self, env):
        os.environ.update({name: value for name, value in env.items() if name.startswith(("PULSE_", "XDG_", "HOME"))})
        pulse = self.pulse = ctypes.CDLL("libpulse.so.0")
        for name in ("pa_threaded_mainloop_new", "pa_threaded_mainloop_get_api", "pa_context_new", "pa_stream_new",
                     "pa_stream_update_timing_info"):
            getattr(pulse, name).restype = ctypes.c_void_p
        pulse.pa_stream_get_timing_info.restype = ctypes.POINTER(TimingInfo)
        pulse.pa_stream_writable_size.restype = ctypes.c_size_t
        self.loop = ctypes.c_void_p(pulse.pa_threaded_mainloop_new())
        api = ctypes.c_void_p(pulse.pa_threaded_mainloop_get_api(self.loop))
        self.context = ctypes.c_void_p(pulse.pa_context_new(api, b"punctuality"))
        pulse.pa_context_connect(self.context, None, 1, None)
        pulse.pa_threaded_mainloop_start(self.loop)
        self._await(lambda: pulse.pa_context_get_state(self.context) == READY_CONTEXT)

    def _locked(self, call):
        self.pulse.pa_threaded_mainloop_lock(self.loop)
        try:
            return call()
        finally:
            self.pulse.pa_threaded_mainloop_unlock(self.loop)

    def _await(self, condition):
        while not self._locked(condition):
            time.sleep(0.005)

    def play(self, samples, rate):
        """Returns, when all has sounded, the second since the epoch at which the first sample did."""
        pulse = self.pulse
        spec = SampleSpec(S16LE, rate, 1)
        length = rate * 2 // 5  # 200 ms of bytes
        attributes = BufferAttributes(0xffffffff, length, 0xffffffff, 0xffffffff, 0xffffffff)
        stream = ctypes.c_void_p(self._locked(lambda: pulse.pa_stream_new(
            self.context, b"music", ctypes.byref(spec), None)))
        self._locked(lambda: pulse.pa_stream_connect_playback(
            stream, SINK.encode(), ctypes.byref(attributes), 0x2000 | 0x0008, None, None))
        self._await(lambda: pulse.pa_stream_get_state(stream) == READY_STREAM)
        starts = []
        done = 0
        samples = samples + bytes(rate)  # half a second behind the end
        end = None
        while end is None or time.time() < end:
            room = self._locked(lambda: pulse.pa_stream_writable_size(stream))
            chunk = samples[done:done + (room if room < 1 << 40 else 0) // 2 * 2]
            if chunk:
                self._locked(lambda: pulse.pa_stream_write(stream, chunk, ctypes.c_size_t(len(chunk)), None,
                                                           ctypes.c_int64(0), 0))
                done += len(chunk)
            self._locked(lambda: self._ask(stream))
            time.sleep(0.02)
            told = self._locked(lambda: self._start(stream, rate))
            if told and (not starts or told != starts[-1]):
                starts.append(told)
            if end is None and done == len(samples) and starts:
                end = sorted(starts)[len(starts) // 2] + len(samples) / 2 / rate - 0.4
        self._locked(lambda: pulse.pa_stream_disconnect(stream))
        self._locked(lambda: pulse.pa_stream_unref(stream))
        settled = sorted(starts[len(starts) // 4:])
        return settled[len(settled) // 2]

    def end(self):
        self._locked(lambda: self.pulse.pa_context_disconnect(self.context))
        self.pulse.pa_threaded_mainloop_stop(self.loop)
        self.pulse.pa_context_unref(self.context)
        self.pulse.pa_threaded_mainloop_free(self.loop)

    def _ask(self, stream):
        operation = self.pulse.pa_stream_update_timing_info(stream, None, None)
        if operation:
            self.pulse.pa_operation_unref(ctypes.c_void_p(operation))

    def _start(self, stream, rate):
        info = self.pulse.pa_stream_get_timing_info(stream)
        if not info or info.contents.read_index <= 0 or not info.contents.playing:
            return None
        told = info.contents
        now = told.seconds + told.microseconds / 1e6
        return now + told.sink_usec / 1e6 - told.read_index / 2 / rate


class FileInfo(ctypes.Structure):
    _fields_ = [("frames", ctypes.c_int64), ("samplerate", ctypes.c_int), ("channels", ctypes.c_int),
                ("format", ctypes.c_int), ("sections", ctypes.c_int), ("seekable", ctypes.c_int)]


def read_audio(path, seconds):
    """The first seconds of a file as bytes of mono 16-bit samples, and their rate."""
    sndfile = ctypes.CDLL("libsndfile.so.1")
    sndfile.sf_open.restype = ctypes.c_void_p
    sndfile.sf_readf_short.restype = ctypes.c_int64
    info = FileInfo()
    file = ctypes.c_void_p(sndfile.sf_open(os.fsencode(path), 0x10, ctypes.byref(info)))
    if not file:
        raise SystemExit(f"script/punctuality: {path} cannot be read")
    frames = min(info.frames, int(seconds * info.samplerate))
    buffer = (ctypes.c_int16 * (frames * info.channels))()
    count = sndfile.sf_readf_short(file, buffer, ctypes.c_int64(frames))
    sndfile.sf_close(file)
    if info.channels == 1:
        return bytes(buffer)[:2 * count], info.samplerate
    mono = (ctypes.c_int16 * count)()
    for frame in range(count):
        part = buffer[frame * info.channels:(frame + 1) * info.channels]
        mono[frame] = sum(part) // info.channels
    return bytes(mono), info.samplerate
