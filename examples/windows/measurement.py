# SPDX-License-Identifier: MIT
# Copyright (c) 2026 The QOR_File authors
"""Files three traces as a Data Block, then reads them back and shows their peaks. Needs pywin32.

Usage: measurement.py [FILE]
"""
import math
import sys

from win32com.client import constants
from win32com.client.gencache import EnsureDispatch

SAMPLES = 1000

file = EnsureDispatch('QOR_File.clsQOR_File')        # empties the documents of this thread
arrays = EnsureDispatch('QOR_File.QOR_FileArrays')   # works on the same documents


def save(path):
    file.DataBlock_Label = 'Tap on a beam'
    file.DataBlock_XaxisUnits = 's'
    file.DataBlock_XaxisIncrement = 0.001
    file.DataBlock_NumberOfTraces = 3
    file.DataBlock_NumberOfSamples = SAMPLES
    for trace in range(1, 4):   # everything counts from 1
        file.SetTrace_Label(trace, f'Accelerometer {trace}')   # Set... for properties that take a number
        file.SetTrace_DegreesOfFreedom(trace, f'{trace}Z')
        file.SetTrace_MeasurementUnits(trace, 'm/s^2')
        file.SetTrace_MeasurementType(trace, constants.DB_MeasurementIsTimeResponse)
        wave = [trace * math.exp(-0.005 * n) * math.sin(0.05 * n) for n in range(SAMPLES)]
        require(f'Trace {trace}', arrays.WriteTraceSamples(trace, wave))
    require(path, file.OutputDataBlockFile(path))


def show(path):
    status, _ = file.InputDataBlockFile(path)   # in/out arguments come back behind the result
    require(path, status)
    print(f'{file.DataBlock_Label}: {file.DataBlock_NumberOfTraces} traces of '
          f'{file.DataBlock_NumberOfSamples} samples')
    for trace in range(1, file.DataBlock_NumberOfTraces + 1):
        status, values, _ = arrays.ReadTraceSamples(trace, None, None)
        require(f'Trace {trace}', status)
        peak = max(values, key=abs)
        print(f'{file.Trace_Label(trace)}: peak {peak:.3f} {file.Trace_MeasurementUnits(trace)}')


def require(what, status=0):
    """Raises an error where a call failed, or an earlier property could not be set."""
    code = file.ErrorStatus   # once: reading clears it
    if status != constants.Failure and code == constants.NoError:
        return
    text = file.GetLastErrorString()   # an older error's, unless it names the code
    if code == constants.NoError:
        text = 'cannot be opened or made'
    elif f'({code})' not in text:
        text = f'error {code}'
    raise RuntimeError(f'{what}: {text}')


name = sys.argv[1] if len(sys.argv) > 1 else 'measurement.blk'
save(name)
show(name)
