using System;

namespace Velmar
{
    /// <summary>A call of the native library that failed.</summary>
    public sealed class VelmarException : Exception
    {
        internal VelmarException(string function, string file, int code, string words)
            : base(function + ": " + (file == null ? "" : file + ": ") + words + " (code " + code + ")")
        {
            Function = function;
            File = file;
            Code = code;
        }

        /// <summary>The export that failed.</summary>
        public string Function { get; private set; }

        /// <summary>The file or directory that it was to read; null when it reads none.</summary>
        public string File { get; private set; }

        /// <summary>The negative code, or 0 when the export gave none.</summary>
        public int Code { get; private set; }
    }

    /// <summary>What the codes of the readers mean; code -k stands at k - 1.</summary>
    internal static class ErrorWords
    {
        private const string Open = "cannot be opened or is not a regular file";
        private const string FirstLine = "lacks keyword, type or title";
        private const string Type = "is of another type";
        private const string Keyword = "has another keyword";
        private const string Header = "has a header item that is lacking or not a number";
        private const string Value = "lacks a value or has one that is not a number";

        internal static readonly string[] Grid = { Open, FirstLine, Type, Keyword, Header, Value, Value };

        internal static readonly string[] ShadedGrid = { Open, FirstLine, Type, Keyword, Header + ", or " + Value,
                                                         Value };

        internal static readonly string[] Wind = { Open, FirstLine, Keyword, Header + ", or no columns or rows",
                                                   Value, Value, Value, Value };

        internal static readonly string[] Reports = { Open, FirstLine, Type, Header };

        internal static readonly string[] StationValues = {
            Open, FirstLine, Type, Header, "lacks a contour level",
            "lacks smoothing, bold value or the number of boundary points", "lacks a point of the boundary",
            "has another number of values per station than one", "lacks the number of values or of stations"
        };

        internal static string Of(int code, string[] words)
        {
            return words != null && code < 0 && code >= -words.Length ? words[-code - 1] : "gave no result";
        }
    }
}
