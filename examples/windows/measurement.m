% SPDX-License-Identifier: MIT
% Copyright (c) 2026 The QOR_File authors
%
% Files three traces as a Data Block, then reads them back and shows their peaks: measurement('FILE')
function measurement(path)
    if nargin < 1, path = fullfile(tempdir, 'measurement.blk'); end
    file = actxserver('QOR_File.clsQOR_File');         % empties the documents of this thread
    arrays = actxserver('QOR_File.QOR_FileArrays');    % works on the same documents
    save_traces(file, arrays, path);
    show_traces(file, arrays, path);
end

function save_traces(file, arrays, path)
    n = 0:999;
    file.DataBlock_Label = 'Tap on a beam';
    file.DataBlock_XaxisUnits = 's';
    file.DataBlock_XaxisIncrement = 0.001;
    file.DataBlock_NumberOfTraces = 3;
    file.DataBlock_NumberOfSamples = numel(n);
    for trace = 1:3   % everything counts from 1
        set(file, 'Trace_Label', trace, sprintf('Accelerometer %d', trace));   % the number, then the value
        set(file, 'Trace_DegreesOfFreedom', trace, sprintf('%dZ', trace));
        set(file, 'Trace_MeasurementUnits', trace, 'm/s^2');
        set(file, 'Trace_MeasurementType', trace, 1);   % DB_MeasurementIsTimeResponse
        wave = trace * exp(-0.005 * n) .* sin(0.05 * n);
        require(file, 'Trace', arrays.WriteTraceSamples(trace, wave));
    end
    require(file, path, file.OutputDataBlockFile(path));
end

function show_traces(file, arrays, path)
    status = file.InputDataBlockFile(path);   % in/out arguments come back behind the result
    require(file, path, status);
    for trace = 1:file.DataBlock_NumberOfTraces
        [status, values] = arrays.ReadTraceSamples(trace, []);
        require(file, 'Trace', status);
        [~, highest] = max(abs(values));
        fprintf('%s: peak %.3f %s\n', file.Trace_Label(trace), values(highest), file.Trace_MeasurementUnits(trace));
    end
end

% An error where a call failed, or an earlier property could not be set. Enumerations come as names or as numbers.
function require(file, what, status)
    code = file.ErrorStatus;   % once: reading clears it
    failed = strcmp(status, 'Failure') || isequal(status, -1);
    if ~failed && (strcmp(code, 'NoError') || isequal(code, 0)), return; end
    error('QOR_File:failed', '%s: failed, code %s; last text: %s', what, string(code), file.GetLastErrorString());
end
