"""Writes the VBScript samples of a page as files: doc_samples.py PAGE FOLDER. Prints the path of each and the output that the
sample promises in its comment "' prints: ...", separated by a bar."""
import pathlib
import re
import sys

page = pathlib.Path(sys.argv[1]).read_text(encoding="utf-8")
folder = pathlib.Path(sys.argv[2])
folder.mkdir(parents=True, exist_ok=True)
samples = re.findall(r"```vbscript\n(.*?)```", page, re.DOTALL)
if not samples:
    sys.exit(f"{sys.argv[1]} has no VBScript sample")
for number, sample in enumerate(samples, 1):
    promise = re.search(r"' prints: (.+)", sample)
    if promise is None:
        sys.exit(f"sample {number} doesn't say what it prints")
    path = folder / f"sample_{number}.vbs"
    path.write_text(sample, encoding="ascii", newline="\r\n")
    print(f"{path}|{promise.group(1).strip()}")
