// A short soft tone, or nothing where the page may not sound yet.

const pitch = 660;
const seconds = 0.09;
const loudness = 0.06;

export function playBeep(): void {
  if (!navigator.userActivation?.hasBeenActive) return;
  const audio = new AudioContext();
  const tone = new OscillatorNode(audio, { frequency: pitch });
  const volume = new GainNode(audio, { gain: loudness });
  const end = audio.currentTime + seconds;
  volume.gain.setTargetAtTime(0, end - seconds / 3, seconds / 12);
  tone.connect(volume).connect(audio.destination);
  tone.onended = () => void audio.close();
  tone.start();
  tone.stop(end);
}
